#include "catalogue/PlatformFolders.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

const char* const kSystemEllipsoidFile = "ellipsoid.zpf";

std::string WithSeparator(const fs::path& p) {
    std::string s = p.string();
    if (!s.empty() && s.back() != '/') s += '/';
    return s;
}

// Any function of this library serves to ask the loader which file holds it.
void AnchorSymbol() {}

}  // namespace

std::string GxLibraryFolder() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&AnchorSymbol), &info) == 0 || !info.dli_fname) return "";
    std::error_code ec;
    fs::path file = fs::absolute(info.dli_fname, ec);
    if (ec) return "";
    return WithSeparator(file.parent_path());
}

std::string GxDataFolder() {
    const std::string own = GxLibraryFolder();
    if (own.empty()) return own;
    std::error_code ec;
    if (fs::exists(own + kSystemEllipsoidFile, ec)) return own;
    fs::path installed = fs::path(own) / ".." / "share" / "gxcart";
    if (fs::exists(installed / kSystemEllipsoidFile, ec))
        return WithSeparator(installed.lexically_normal());
    return own;
}

std::string GxUserFolder() {
    const char* xdg = std::getenv("XDG_DATA_HOME");
    if (xdg && xdg[0] == '/') return WithSeparator(fs::path(xdg) / "gxcart");
    const char* home = std::getenv("HOME");
    if (home && home[0] != '\0')
        return WithSeparator(fs::path(home) / ".local" / "share" / "gxcart");
    return "";
}

bool GxEnsureFolder(const std::string& folder) {
    if (folder.empty()) return false;
    std::error_code ec;
    fs::create_directories(folder, ec);
    return fs::is_directory(folder, ec);
}
