#include <clocale>

#include "catalogue/CartSetup.h"
#include "catalogue/PlatformFolders.h"
#include "gxcart.h"

// Start-up when the library is loaded into a process: numbers in the data
// files are read with a decimal point whatever the user's locale, then the
// catalogues are filled from the library's folder and the user's folder. The
// setup singleton's destructor writes the custom files back at unload.
namespace {

struct LoadHook {
    LoadHook() {
        std::setlocale(LC_NUMERIC, "C");
        CGxCartSetup::Instance().ReadData(GxDataFolder(), GxUserFolder());
    }
};

const LoadHook loadHook;

}  // namespace

// Kept for hosts that call it explicitly; start-up needs nothing from them.
void CARTSETUPLINUX() noexcept {}
