#pragma once

#include <clocale>
#include <string>

namespace gxtest {

// Switches LC_NUMERIC to a locale whose decimal separator is a comma for the
// life of the object. The test script generates de_DE.UTF-8; tests skip with
// the reason when no such locale exists on the machine.
class CommaLocale {
public:
    CommaLocale() {
        const char* old = std::setlocale(LC_NUMERIC, nullptr);
        previous_ = old ? old : "C";
        for (const char* name :
             {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8", "de_DE"}) {
            if (std::setlocale(LC_NUMERIC, name)) {
                active_ = true;
                break;
            }
        }
    }
    ~CommaLocale() { std::setlocale(LC_NUMERIC, previous_.c_str()); }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    bool active() const { return active_; }
    std::string reason() const { return "no locale with a decimal comma (generate de_DE.UTF-8)"; }

private:
    std::string previous_;
    bool active_ = false;
};

}  // namespace gxtest
