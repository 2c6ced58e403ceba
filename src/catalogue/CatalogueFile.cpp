#include "catalogue/CatalogueFile.h"

#include <sys/stat.h>

#include <utility>

#include "catalogue/CatalogueReport.h"

GxCatalogueFile::GxCatalogueFile(const std::string& path)
    : path_(path), file_(zpfLoadFile(path.c_str())) {
    // Missing is not an error; whatever else went wrong with the file is
    // the catalogue's business only through ReportProblems.
    if (!file_) {
        std::string message;
        if (zpfGetErrorGlb(&message) == eZpfIo) GxReportCatalogue(message);
    }
}

GxCatalogueFile::GxCatalogueFile(GxCatalogueFile&& other) noexcept
    : path_(std::move(other.path_)), file_(std::exchange(other.file_, nullptr)) {}

GxCatalogueFile& GxCatalogueFile::operator=(GxCatalogueFile&& other) noexcept {
    if (this != &other) {
        zpfClose(file_);
        path_ = std::move(other.path_);
        file_ = std::exchange(other.file_, nullptr);
    }
    return *this;
}

void* GxCatalogueFile::Block(const char* name) const {
    if (!file_) return nullptr;
    void* block = zpfTargetByNameNum(file_, name, 1);
    if (!block) zpfGetErrorGlb();
    return block;
}

void GxCatalogueFile::ReportProblems() const {
    if (!file_) return;
    const int count = zpfGetNoProblems(file_);
    int shown = 0;
    for (int i = 1; i <= count; ++i) {
        std::string problem = zpfGetProblem(file_, i);
        if (problem.empty()) break;
        GxReportCatalogue(std::move(problem));
        ++shown;
    }
    zpfGetErrorGlb();
    if (shown < count)
        GxReportCatalogue(path_ + ": " + std::to_string(count - shown) +
                          " more problems not shown");
}

void GxReportSkippedSection(const std::string& path, void* section, const std::string& problem) {
    GxReportCatalogue(path + ": " + problem + "; section '" + zpfGetName(section) + "' of line " +
                      std::to_string(zpfGetLine(section)) + " is skipped");
}

std::string GxFirstText(void* section, const char* keyword) {
    std::string text;
    if (!zpfGetParam(section, keyword, 1, 1, &text)) text.clear();
    return text;
}

GxFileIdentity GxFileIdentity::Of(const std::string& path) {
    GxFileIdentity identity;
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0) return identity;
    identity.exists = true;
    identity.device = info.st_dev;
    identity.inode = info.st_ino;
    identity.size = static_cast<unsigned long long>(info.st_size);
    identity.modified =
        static_cast<long long>(info.st_mtim.tv_sec) * 1000000000LL + info.st_mtim.tv_nsec;
    return identity;
}

bool GxFileIdentity::operator==(const GxFileIdentity& other) const {
    return exists == other.exists && device == other.device && inode == other.inode &&
           size == other.size && modified == other.modified;
}

bool GxWriteKeywordFile(void* file, const std::string& path) {
    std::string keptAs;
    if (!zpfWrite(file, path.c_str(), &keptAs)) {
        std::string message;
        zpfGetErrorGlb(&message);
        const std::string prefix = "zpfWrite: ";
        if (message.compare(0, prefix.size(), prefix) == 0) message.erase(0, prefix.size());
        GxReportCatalogue(message + "; the file on disk is unchanged");
        return false;
    }
    if (!keptAs.empty())
        GxReportCatalogue(path + ": could not be read completely; the file as it was is kept as " +
                          keptAs);
    return true;
}
