#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/CustomFile.h"
#include "foundation/GxExport.h"

class CGxMapProjData;
class GxCatalogueFile;
class CGxTabledMapProjData;
class CGxMapProjectionInfo;
class CGxProjReadNotifier;

// The catalogue of predefined coordinate systems offered for selection, in the
// order users see it: "LONG/LAT", the sixty UTM zones, the system files, the
// user's custom file, the common EPSG systems and "NON-UTM". It owns its
// definitions.
//
// Beside it stand the deferred systems: thousands more EPSG systems, too many
// to read at every start-up, in a file next to the library that is read the
// first time a look-up by name or code finds nothing in the catalogue. They
// are found by name and code like catalogue entries but are not enumerated
// and never written.
class GXCART_API CGxMapProjectionList {
public:
    using Iterator = std::list<CGxMapProjData*>::iterator;

    CGxMapProjectionList();
    CGxMapProjectionList(const CGxMapProjectionList&) = delete;
    CGxMapProjectionList& operator=(const CGxMapProjectionList&) = delete;
    virtual ~CGxMapProjectionList();

    // Fills the catalogue from the library's folder and the user's folder
    // (both ending in '/'; an empty user folder skips the custom file).
    void InitMapProjections(const std::string& dataPath, const std::string& userPath);
    // The same with the user's custom file already loaded.
    void InitMapProjections(const std::string& dataPath, const GxCatalogueFile& customFile);
    // Appends every section of a keyword file whose name a definition type
    // accepts; the first type in enumeration order wins. Missing files and
    // unknown sections are skipped. A malformed section (see
    // CGxTabledMapProjData::SectionProblem) is skipped and reported
    // (CGxCartSetup::GetReport), and its name then finds no entry of that
    // file or a later one, rather than another system of the same name.
    void ReadMapProjections(const std::string& path, bool editable);
    void ReadMapProjections(const GxCatalogueFile& file, bool editable);
    // Writes all editable entries to path; the old file survives a failed
    // write. Returns whether the file was written. (The setup writes the
    // user's shared file differently: see CGxCartSetup::WriteModified.)
    bool WriteCustomMapProjections(const std::string& path);

    // Takes ownership and appends.
    void AddMapProjection(CGxMapProjData* definition);
    // Removes the entry and deletes it; an unknown pointer is left alone.
    void DeleteMapProjection(CGxMapProjData* definition);
    // First entry whose name, in short form, equals the short form of name
    // exactly (case included); null when none.
    CGxMapProjData* GetMapProjection(const std::string& name) const;
    // The entry that carries a register code (see CatalogueCode.h: "EPSG:25832",
    // "urn:ogc:def:crs:EPSG::25832", "ESRI:102031"): the first in catalogue
    // order, else the first deferred system with it. Null for a text that is
    // no code and for a code no system carries.
    CGxMapProjData* GetMapProjectionByCode(const std::string& code) const;
    // The first deferred system whose name, in short form, equals the short
    // form of name exactly (case included); null when none.
    CGxMapProjData* GetDeferredMapProjection(const std::string& name) const;
    // How many deferred systems have been read: 0 until a look-up needed
    // them (or when there is no deferred file).
    std::size_t GetNoOfDeferredMapProjections() const;

    Iterator GetIteratorBegin() { return entries.begin(); }
    Iterator GetIteratorEnd() { return entries.end(); }

    // Systems outside the catalogue, found when a caller enumerates (see
    // ProjectionScan.cpp). The Add functions append to out the systems that
    // pass CGxMapProjection::IsType(typeFlags, ...): AddPRJfiles those of the
    // "*.PRJ" files in the folder "OpenGISProjections" of the library's
    // folder and then of the user's folder, AddProjections those of the
    // system and then the user setup file. A null out does nothing; the
    // notifier may be null.
    void AddPRJfiles(int typeFlags, std::list<CGxMapProjectionInfo>* out,
                     CGxProjReadNotifier* notifier);
    void AddProjections(int typeFlags, std::list<CGxMapProjectionInfo>* out,
                        CGxProjReadNotifier* notifier);
    // Appends the first line of every file in folder whose name matches
    // pattern ('*' and '?' wildcards, letter case ignored), in name order,
    // when the WKT reader finds a system in it; the notifier hears each such
    // file's name.
    void ScanPRJfiles(std::list<CGxMapProjectionInfo>* out, const std::string& folder,
                      const std::string& pattern, CGxProjReadNotifier* notifier);
    // Appends every line of a setup file (one projection string a line) in
    // which the WKT reader finds a system; the notifier hears its PROJCS
    // name. A missing file adds nothing.
    void ScanProjectionSetup(std::list<CGxMapProjectionInfo>* out, const std::string& path,
                             CGxProjReadNotifier* notifier);
    // "SystemDefinedProjection.setup" in the library's data folder and
    // "UserDefinedProjection.setup" in the user's folder; "" when the folder
    // is not known.
    static std::string GetSystemDefinedSetupName();
    static std::string GetUserDefinedSetupName();

    // Identifiers of ellipsoids that resolve to nothing because their
    // sections were skipped; a definition read afterwards that uses one is
    // kept in the list but its name finds nothing, instead of a grid on an
    // unknown ellipsoid.
    void SetUnavailableEllipsoids(std::vector<std::string> ids) {
        unavailableEllipsoids = std::move(ids);
    }
    // The custom entries as the files read held them (see CustomFile.h); the
    // setup writes only what changed since, and then records the new state.
    const std::vector<GxCustomRecord>& LoadedCustomRecords() const { return loadedCustom; }
    void SetLoadedCustomRecords(std::vector<GxCustomRecord> records) {
        loadedCustom = std::move(records);
    }

private:
    // An entry's name and its short form as they were when the entry joined
    // the catalogue, so that a look-up does not parse every name again.
    struct NameKey {
        CGxMapProjData* definition;
        // The same object when its name can be read without a copy, else null.
        const CGxTabledMapProjData* tabled;
        std::string name;
        std::string shortName;
        // Order of joining, unchanged by deletions.
        std::size_t serial;
    };
    // A name that finds nothing from the entry with this serial on.
    struct Unavailable {
        std::string shortName;
        std::size_t fromSerial;
    };

    void _Append(CGxMapProjData* definition);
    void _MarkUnavailable(const std::string& name, std::size_t fromSerial);
    // Whether an entry now called currentName has the wanted short name.
    static bool _Matches(const NameKey& key, const std::string& currentName,
                         const std::string& wantedShortName);

    // The deferred systems and their indexes, read once on first need.
    struct DeferredSystems;
    DeferredSystems& _Deferred() const;

    std::list<CGxMapProjData*> entries;
    // In catalogue order; changed only with the list itself, so concurrent
    // look-ups in a catalogue nobody edits only read it.
    std::vector<NameKey> names;
    std::unique_ptr<DeferredSystems> deferred;
    std::size_t nextSerial = 0;
    std::vector<Unavailable> unavailable;
    std::vector<std::string> unavailableEllipsoids;
    std::vector<GxCustomRecord> loadedCustom;
};
