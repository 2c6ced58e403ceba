#include "catalogue/CartSetup.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <set>
#include <vector>

#include "catalogue/CatalogueFile.h"
#include "catalogue/CatalogueLock.h"
#include "catalogue/CatalogueReport.h"
#include "catalogue/CustomFile.h"
#include "catalogue/MapProjectionBuffer.h"
#include "catalogue/PlatformFolders.h"
#include "zpf/FileReplace.h"
#include "zpf/zpf.h"

namespace {

const char* const kSystemEllipsoids = "ellipsoid.zpf";
const char* const kCustomEllipsoids = "custom_ellipsoid.zpf";
const char* const kCustomProjections = "custom_projection.zpf";
// Reads of the two custom files before a writer that keeps replacing them is
// given up on and the last read taken.
constexpr int kConsistentReadAttempts = 5;

// A file being built, for the records of entries in memory.
struct Scratch {
    Scratch()
        : file(zpfCreate()),
          ellipsoids(zpfAddTarget(file, "ELLIPSOID_DEFINITION")),
          projections(zpfAddTarget(file, "MAP_PROJECTION_DEFINITION")) {}
    ~Scratch() { zpfClose(file); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    void* file;
    void* ellipsoids;
    void* projections;
};

const GxCustomRecord* WithKey(const std::vector<GxCustomRecord>& records, const std::string& key) {
    auto it = std::find_if(records.begin(), records.end(),
                           [&key](const GxCustomRecord& r) { return r.key == key; });
    return it == records.end() ? nullptr : &*it;
}

}  // namespace

CGxCartSetup& CGxCartSetup::Instance() {
    static CGxCartSetup setup;
    return setup;
}

CGxCartSetup::CGxCartSetup() = default;

CGxCartSetup::~CGxCartSetup() {
    // Nobody can ask for the report after the unload: what the last write
    // has to say (it failed, a damaged file was kept aside) goes to standard
    // error, the only place left where the user can learn of it. Out of
    // memory at exit, nothing more can be done; the files on disk are as
    // they were.
    try {
        GxTakeCatalogueReport();
        WriteModified();
        const std::string told = GxTakeCatalogueReport();
        std::size_t begin = 0;
        while (begin < told.size()) {
            const std::size_t end = told.find('\n', begin);
            std::fprintf(stderr, "gxcart: %s\n", told.substr(begin, end - begin).c_str());
            begin = end == std::string::npos ? told.size() : end + 1;
        }
    } catch (...) {
    }
}

std::string CGxCartSetup::PeekReport() {
    return GxPeekCatalogueReport();
}

std::string CGxCartSetup::GetReport() {
    return GxTakeCatalogueReport();
}

void CGxCartSetup::ReadData(const std::string& dataPath_, const std::string& userPath_) {
    userPath = userPath_;
    dataPath = dataPath_;
    // An empty folder means it could not be determined: nothing is read from
    // the working directory instead.
    if (!dataPath.empty()) ellipsoids.ReadEllipsoids(dataPath + kSystemEllipsoids, false);

    GxCatalogueFile customEllipsoids;
    GxCatalogueFile customProjections;
    if (!userPath.empty()) {
        const std::string ellipsoidPath = userPath + kCustomEllipsoids;
        // Temporary files of writers killed part way are of no use to anyone.
        for (const char* name :
             {kCustomEllipsoids, kCustomProjections, CGxMapProjectionBuffer::kFileName})
            gxzpf::RemoveStaleTemporaries(userPath + name);
        // The two custom files are read as one state. A writer replaces the
        // ellipsoid file before the projection file whose entries use it, so
        // when the ellipsoid file is the same file after both were read, the
        // projections read find their ellipsoids in it.
        for (int attempt = 0; attempt < kConsistentReadAttempts; ++attempt) {
            const GxFileIdentity before = GxFileIdentity::Of(ellipsoidPath);
            customEllipsoids = GxCatalogueFile(ellipsoidPath);
            customProjections = GxCatalogueFile(userPath + kCustomProjections);
            if (GxFileIdentity::Of(ellipsoidPath) == before) break;
        }
    }
    ellipsoids.SetLoadedCustomRecords({});
    ellipsoids.ReadEllipsoids(customEllipsoids, true);
    ellipsoids.GenerateCompleteList();
    projections.SetLoadedCustomRecords({});
    projections.SetUnavailableEllipsoids(ellipsoids.UnavailableIdentifiers());
    projections.InitMapProjections(dataPath, customProjections);
}

bool CGxCartSetup::WriteModified() {
    const std::lock_guard<std::mutex> oneWriter(writing);
    const bool ellipsoidsMarked = ellipsoidListModified;
    const bool projectionsMarked = projectionListModified;
    if (userPath.empty() || (!ellipsoidsMarked && !projectionsMarked)) return true;

    // What this process changed since the files were read. A look-up marks
    // the projection list too, so the mark alone proves nothing.
    const auto ellipsoidFormat = GxEllipsoidCustomFormat(ellipsoids);
    const auto projectionFormat = GxProjectionCustomFormat(projections);
    const Scratch scratch;
    const std::vector<GxCustomRecord> ellipsoidsNow = ellipsoidFormat->Records(scratch.ellipsoids);
    std::vector<GxCustomRecord> projectionsNow;
    GxCustomChanges ellipsoidChanges;
    GxCustomChanges projectionChanges;
    if (ellipsoidsMarked)
        ellipsoidChanges = GxCustomDiff(ellipsoids.LoadedCustomRecords(), ellipsoidsNow);
    if (projectionsMarked) {
        projectionsNow = projectionFormat->Records(scratch.projections);
        projectionChanges = GxCustomDiff(projections.LoadedCustomRecords(), projectionsNow);
    }
    if (ellipsoidChanges.Empty() && projectionChanges.Empty()) return true;

    if (!GxEnsureFolder(userPath)) {
        GxReportCatalogue(userPath + ": cannot create the folder; custom entries not saved");
        return false;
    }
    const GxCatalogueLock lock(userPath);
    if (!lock.Held()) {
        GxReportCatalogue(lock.Problem() + "; custom entries not saved");
        return false;
    }
    const std::string ellipsoidPath = userPath + kCustomEllipsoids;
    const std::string projectionPath = userPath + kCustomProjections;
    gxzpf::RemoveStaleTemporaries(ellipsoidPath);
    gxzpf::RemoveStaleTemporaries(projectionPath);

    // 1. New and edited ellipsoids, and those that the projections about to
    // be written use but the file lacks (another process may have deleted
    // them meanwhile).
    GxCustomFile ellipsoidFile(ellipsoidPath, *ellipsoidFormat);
    std::vector<GxCustomChanges::Put> ellipsoidPuts = ellipsoidChanges.puts;
    for (const GxCustomChanges::Put& put : projectionChanges.puts) {
        const std::string id = projectionFormat->Reference(put.now->entry);
        if (id.empty() || ellipsoids.IsSystemIdentifier(id) || ellipsoidFile.Holds(id)) continue;
        const GxCustomRecord* mine = WithKey(ellipsoidsNow, id);
        if (mine &&
            std::none_of(ellipsoidPuts.begin(), ellipsoidPuts.end(),
                         [mine](const GxCustomChanges::Put& p) { return p.now->key == mine->key; }))
            ellipsoidPuts.push_back({mine, nullptr});
    }
    bool ellipsoidsSaved = ellipsoidFile.Usable();
    if (ellipsoidsSaved && ellipsoidFile.Apply(ellipsoidPuts, {}, nullptr, nullptr))
        ellipsoidsSaved = ellipsoidFile.Write();

    // 2. The projections, once the ellipsoids they need are on disk.
    bool projectionsSaved = true;
    std::unique_ptr<GxCustomFile> projectionFile;
    if (!projectionChanges.Empty()) {
        if (!ellipsoidsSaved) {
            GxReportCatalogue(projectionPath +
                              ": not saved, since the ellipsoids it needs could not be");
            projectionsSaved = false;
        } else {
            projectionFile = std::make_unique<GxCustomFile>(projectionPath, *projectionFormat);
            projectionsSaved = projectionFile->Usable();
            if (projectionsSaved &&
                projectionFile->Apply(projectionChanges.puts, projectionChanges.deletions, nullptr,
                                      nullptr))
                projectionsSaved = projectionFile->Write();
        }
    }

    // 3. Deleted ellipsoids, unless a projection in the file still uses one.
    if (!ellipsoidChanges.deletions.empty() && ellipsoidsSaved) {
        if (!projectionFile)
            projectionFile = std::make_unique<GxCustomFile>(projectionPath, *projectionFormat);
        const bool known = projectionFile->Usable();
        const std::vector<std::string> used = projectionFile->References();
        const std::set<std::string> inUse(used.begin(), used.end());
        std::vector<const GxCustomRecord*> kept;
        auto deletable = [&](const std::string& id) {
            return known && (inUse.count(id) == 0 || ellipsoids.IsSystemIdentifier(id));
        };
        if (ellipsoidFile.Apply({}, ellipsoidChanges.deletions, deletable, &kept))
            ellipsoidsSaved = ellipsoidFile.Write();
        for (const GxCustomRecord* record : kept)
            GxReportCatalogue(ellipsoidPath + ": the ellipsoid '" + record->key +
                              "' is kept, since a projection in " + kCustomProjections +
                              " uses it");
    }

    if (ellipsoidsSaved && ellipsoidsMarked) ellipsoids.SetLoadedCustomRecords(ellipsoidsNow);
    if (projectionsSaved && projectionsMarked) projections.SetLoadedCustomRecords(projectionsNow);
    return ellipsoidsSaved && projectionsSaved;
}
