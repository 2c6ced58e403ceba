#include "catalogue/CatalogueReport.h"

#include <cstddef>
#include <mutex>
#include <utility>
#include <vector>

namespace {

// A damaged file can have a problem on every line; the report stays short.
constexpr std::size_t kKeptMessages = 100;

struct Report {
    std::mutex mutex;
    std::vector<std::string> messages;
    std::size_t dropped = 0;
};

// Never destroyed: the setup's destructor reports the unload's writes after
// other statics of the library may already be gone.
Report& TheReport() {
    static Report* report = new Report;
    return *report;
}

std::string Text(const Report& report) {
    std::string text;
    for (const std::string& message : report.messages) text += message + '\n';
    if (report.dropped > 0) text += "... and " + std::to_string(report.dropped) + " more\n";
    return text;
}

}  // namespace

void GxReportCatalogue(std::string message) {
    Report& report = TheReport();
    const std::lock_guard<std::mutex> lock(report.mutex);
    if (report.messages.size() < kKeptMessages)
        report.messages.push_back(std::move(message));
    else
        ++report.dropped;
}

std::string GxPeekCatalogueReport() {
    Report& report = TheReport();
    const std::lock_guard<std::mutex> lock(report.mutex);
    return Text(report);
}

std::string GxTakeCatalogueReport() {
    Report& report = TheReport();
    const std::lock_guard<std::mutex> lock(report.mutex);
    std::string text = Text(report);
    report.messages.clear();
    report.dropped = 0;
    return text;
}
