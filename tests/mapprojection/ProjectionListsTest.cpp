#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <list>
#include <string>
#include <vector>

#include "catalogue/CartSetup.h"
#include "catalogue/MapProjectionBuffer.h"
#include "catalogue/MapProjectionList.h"
#include "catalogue/ProjectionScan.h"
#include "definitions/MapProjData.h"
#include "mapprojection/MapProjection.h"
#include "tests/support/TestFiles.h"
#include "wkt/PRJParser.h"

namespace fs = std::filesystem;

namespace {

using MP = CGxMapProjection;
using Lines = std::vector<std::string>;

Lines Split(const std::string& text, char separator) {
    Lines parts;
    std::string part;
    for (char c : text) {
        if (c == separator) {
            parts.push_back(part);
            part.clear();
        } else {
            part += c;
        }
    }
    if (!part.empty()) parts.push_back(part);
    return parts;
}

// Separates the answers a child process sends back; file contents among
// them hold line ends.
constexpr char kRecordSeparator = '\x1e';

// Runs body in a child process whose user folder is folder, so that the
// buffer and setup files it writes never reach the shared test home; answers
// the lines the body gave, or "child failed" when it did not finish.
Lines InUserFolder(const std::string& folder, const std::function<Lines()>& body) {
    int fds[2];
    if (pipe(fds) != 0) return {"pipe failed"};
    const pid_t pid = fork();
    if (pid == 0) {
        close(fds[0]);
        CGxCartSetup::Instance().ReadData("", folder);
        std::string out;
        for (const std::string& line : body()) out += line + kRecordSeparator;
        for (std::size_t done = 0; done < out.size();) {
            const ssize_t n = write(fds[1], out.data() + done, out.size() - done);
            if (n <= 0) _exit(2);
            done += static_cast<std::size_t>(n);
        }
        // No unload: the child's catalogue must not write custom files.
        _exit(0);
    }
    close(fds[1]);
    std::string in;
    char chunk[4096];
    for (ssize_t n; (n = read(fds[0], chunk, sizeof chunk)) > 0;) in.append(chunk, n);
    close(fds[0]);
    int status = -1;
    waitpid(pid, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return {"child failed"};
    return Split(in, kRecordSeparator);
}

// The WKT the writer makes of a catalogue definition.
std::string CatalogueWkt(const char* name) {
    CGxMapProjData* definition =
        CGxCartSetup::Instance().GetMapProjectionList().GetMapProjection(name);
    std::string wkt;
    if (definition) CGxPRJParser(definition).Format(wkt);
    return wkt;
}

class Recorder : public CGxProjReadNotifier {
public:
    void Notify(const std::string& name) override { names.push_back(name); }
    Lines names;
};

Lines Texts(const std::list<CGxMapProjectionInfo>& list) {
    Lines texts;
    for (const CGxMapProjectionInfo& info : list) texts.push_back(info.GetMapProjection());
    return texts;
}

}  // namespace

// The recently used list: made from the catalogue the first time, a new
// system goes to the front, one already shown keeps its place, an edited text
// of a listed system replaces it, and no more than ten projected systems are
// kept or answered.
TEST(ProjectionBuffer, RecentlyUsedSystems) {
    GxTempFolder home;
    const fs::path file = home / CGxMapProjectionBuffer::kFileName;
    const std::string etrs = GxReadText("wkt/25832_gdal.prj");
    std::string etrsEdited = etrs;
    etrsEdited.replace(etrsEdited.find("\"central_meridian\",9"), 20, "\"central_meridian\",10");

    const Lines results = InUserFolder(home.folder(), [&] {
        Lines r;
        long count = -1;
        auto ask = [&](int mask, const char* s) {
            const std::string text = MP::XEnumMapProjectionsBuffer(mask, s, &count);
            r.push_back(std::to_string(count) + " " + text);
            std::ifstream in(file);
            r.push_back(std::string(std::istreambuf_iterator<char>(in), {}));
        };
        ask(1, "");                  // 0, 1: created from the catalogue
        ask(1, "UTM");               // 2, 3: the bare zone word changes nothing
        ask(1, "No such grid");      // 4, 5: neither does an unknown name
        ask(1, "UTM-5");             // 6, 7: already shown: same order
        ask(1, "UTM-32");            // 8, 9: new: to the front, as WKT
        ask(1, etrs.c_str());        // 10, 11
        ask(1, etrsEdited.c_str());  // 12, 13: replaces the older text
        ask(12, "");                 // 14, 15
        ask(4, "NON-UTM");           // 16, 17: does not pass the mask
        ask(8, "NON-UTM");           // 18, 19
        return r;
    });
    ASSERT_EQ(results.size(), 20u) << (results.empty() ? "" : results[0]);
    auto entries = [&](std::size_t i) {
        return Split(results[i].substr(results[i].find(' ') + 1), ';');
    };
    auto count = [&](std::size_t i) { return std::stol(results[i]); };
    Lines zones;
    for (int z = 1; z <= 10; ++z)
        zones.push_back(CatalogueWkt(("UTM-" + std::to_string(z)).c_str()));

    // A new file: "LONG/LAT" and the first ten projected catalogue systems.
    Lines fileLines = Split(results[1], '\n');
    ASSERT_EQ(fileLines.size(), 11u);
    EXPECT_EQ(fileLines[0], "LONG/LAT");
    EXPECT_EQ(Lines(fileLines.begin() + 1, fileLines.end()), zones);
    EXPECT_EQ(count(0), 10);
    EXPECT_EQ(entries(0), zones);

    for (std::size_t i : {2u, 4u, 6u}) {
        EXPECT_EQ(entries(i), zones) << i;
        EXPECT_EQ(results[i + 1], results[1]) << i;
    }

    // UTM-32 in front; the file keeps ten projected lines, so UTM-10 goes.
    Lines expected = {CatalogueWkt("UTM-32")};
    expected.insert(expected.end(), zones.begin(), zones.begin() + 9);
    EXPECT_EQ(entries(8), expected);
    EXPECT_EQ(Split(results[9], '\n').size(), 11u);
    EXPECT_EQ(Split(results[9], '\n')[1], "LONG/LAT");

    expected.insert(expected.begin(), etrs);
    expected.pop_back();
    EXPECT_EQ(entries(10), expected);
    expected[0] = etrsEdited;
    EXPECT_EQ(entries(12), expected);
    EXPECT_EQ(count(12), 10);

    EXPECT_EQ(entries(14), Lines{"LONG/LAT"});
    EXPECT_EQ(count(14), 1);
    EXPECT_EQ(results[17], results[13]);
    EXPECT_EQ(entries(18), Lines{"NON-UTM"});
    EXPECT_EQ(Split(results[19], '\n')[0], "NON-UTM");
}

// .PRJ folders: only files named *.prj in any letter case, only their first
// line, only texts the reader can use; the notifier hears each file taken.
TEST(ProjectionScan, PrjFolder) {
    GxTempFolder dir;
    const std::string utm = GxReadText("wkt/25832_esri.prj");
    const std::string wgs84 = GxReadText("wkt/4326_gdal.prj");
    std::string readable;
    CGxPRJParser::FormatAsReadableWKT(utm, readable);
    GxWriteText(dir / "a.prj", utm + "\n");
    GxWriteText(dir / "B.PRJ", wgs84);
    GxWriteText(dir / "c.Prj", readable);  // WKT over several lines
    GxWriteText(dir / "d.txt", utm);
    GxWriteText(dir / "e.prj", "not a coordinate system\n" + utm);
    GxWriteText(dir / "f.prj", utm + "\r\nsecond line\r\n");
    GxWriteText(dir / "g.prj.bak", utm);
    fs::create_directory(dir / "h.prj");

    CGxMapProjectionList& catalogue = CGxCartSetup::Instance().GetMapProjectionList();
    std::list<CGxMapProjectionInfo> out{CGxMapProjectionInfo("kept")};
    Recorder recorder;
    catalogue.ScanPRJfiles(&out, dir.folder(), "*.PRJ", &recorder);
    EXPECT_EQ(Texts(out), (Lines{"kept", wgs84, utm, utm}));
    EXPECT_EQ(recorder.names, (Lines{"B.PRJ", "a.prj", "f.prj"}));

    catalogue.ScanPRJfiles(&out, dir.folder() + "missing/", "*.PRJ", nullptr);
    catalogue.ScanPRJfiles(nullptr, dir.folder(), "*.PRJ", &recorder);
    EXPECT_EQ(out.size(), 4u);
    catalogue.ScanPRJfiles(&out, dir.folder(), "?.txt", nullptr);
    EXPECT_EQ(out.back().GetMapProjection(), utm);
}

// Setup files: every line the reader can use; the notifier hears the
// system's name.
TEST(ProjectionScan, SetupFile) {
    GxTempFolder dir;
    const std::string utm = GxReadText("wkt/25832_gdal.prj");
    const std::string wgs84 = GxReadText("wkt/4326_esri.prj");
    GxWriteText(dir / "some.setup", utm + "\n\nUTM-32\r\n" + wgs84 + "\r\ngarbage[,,]\n");
    std::list<CGxMapProjectionInfo> out;
    Recorder recorder;
    CGxCartSetup::Instance().GetMapProjectionList().ScanProjectionSetup(
        &out, (dir / "some.setup").string(), &recorder);
    EXPECT_EQ(Texts(out), (Lines{utm, wgs84}));
    EXPECT_EQ(recorder.names, (Lines{"ETRS89 / UTM zone 32N", "GCS_WGS_1984"}));
    CGxCartSetup::Instance().GetMapProjectionList().ScanProjectionSetup(
        &out, (dir / "none.setup").string(), &recorder);
    EXPECT_EQ(out.size(), 2u);
}

// The user's folder: its "OpenGISProjections" folder and its setup file,
// filtered by type; the enumeration into a list puts the catalogue first.
TEST(ProjectionScan, UserFolderAndEnumeration) {
    GxTempFolder home;
    const std::string utm = GxReadText("wkt/25832_gdal.prj");
    const std::string wgs84 = GxReadText("wkt/4326_gdal.prj");
    fs::create_directory(home / "OpenGISProjections");
    GxWriteText(home / "OpenGISProjections/utm.prj", utm);
    GxWriteText(home / "OpenGISProjections/wgs84.PRJ", wgs84);
    GxWriteText(home / "UserDefinedProjection.setup", wgs84 + "\n" + utm + "\n");

    const Lines results = InUserFolder(home.folder(), [] {
        Lines r;
        CGxMapProjectionList& catalogue = CGxCartSetup::Instance().GetMapProjectionList();
        r.push_back(CGxMapProjectionList::GetUserDefinedSetupName());
        Recorder recorder;
        std::list<CGxMapProjectionInfo> out;
        catalogue.AddPRJfiles(MP::eGeographicSystems, &out, &recorder);
        r.push_back(std::to_string(out.size()));
        for (const auto& info : out) r.push_back(info.GetMapProjection());
        r.push_back(std::to_string(recorder.names.size()));

        std::list<CGxMapProjectionInfo> all{CGxMapProjectionInfo("stale")};
        MP::XEnumMapProjections(MP::eGeographicSystems | MP::eLongLatString, &all, nullptr);
        r.push_back(std::to_string(all.size()));
        for (const auto& info : all) r.push_back(info.GetMapProjection());
        MP::XEnumMapProjections(MP::eLongLatString, nullptr, nullptr);
        return r;
    });
    ASSERT_GE(results.size(), 4u) << (results.empty() ? "" : results[0]);
    EXPECT_EQ(results[0], home.folder() + "UserDefinedProjection.setup");
    // Both files were read (the notifier heard both), the geographic one
    // passed the filter.
    EXPECT_EQ(results[1], "1");
    EXPECT_EQ(results[2], wgs84);
    EXPECT_EQ(results[3], "2");
    // The catalogue's "LONG/LAT" first, then the setup file's geographic
    // system; the list was emptied first.
    ASSERT_GE(results.size(), 7u);
    EXPECT_EQ(std::stoul(results[4]), results.size() - 5);
    EXPECT_EQ(results[5], "LONG/LAT");
    EXPECT_EQ(results.back(), wgs84);
    for (std::size_t i = 5; i < results.size(); ++i) {
        EXPECT_NE(results[i], "stale");
        EXPECT_NE(results[i], utm);
    }
}
