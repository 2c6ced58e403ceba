// A program that uses the catalogues as a host application does: the library
// loads the user's files when it is loaded, the program changes or only looks
// up entries, and the library writes the changes when it is unloaded at exit.
// The durability tests run many of these at once, kill them while they write
// and limit what they may write.
//
// Each argument group is one step, run in order:
//   add TAG                      ellipsoid "E-TAG" and the projection "Site TAG" on it
//   add-ellipsoid ID A RF        a custom ellipsoid
//   add-tm NAME ELLIPSOID CM     a custom transverse Mercator (scale 0.9996, false easting 500000)
//   set-centre NAME CM           edits a custom transverse Mercator found by name
//   rename OLD NEW | delete NAME | delete-ellipsoid ID
//   bulk N                       N projections "Bulk 0" ... on WGS 84
//   rewrite-loop                 edits "Bulk 0" and saves, again and again; "ready" after the first
//   save convert NAME LON LAT         prints "NAME x y" (millimetres) or "NAME unavailable"
//   convert-flat NAME LON LAT    the same through the flat interface
//   check                        every custom projection finds its ellipsoid (else exit status 3)
//   recent NAME                  chooses NAME in the recently used list
//   save                         writes now; prints "saved" or "not saved"
//   report                       prints the catalogue report on standard error
//   limit BYTES                  a file-size limit, SIGXFSZ left at its default action
//   wait PATH                    waits until PATH exists
//   print TEXT                   prints TEXT at once

#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>

#include "catalogue/CartSetup.h"
#include "definitions/MapProjData.h"
#include "definitions/TransverseMercatorProjection.h"
#include "foundation/Ellipsoid.h"
#include "gxcart.h"
#include "mapprojection/MapProjection.h"

namespace {

int status = 0;

CGxCartSetup& Setup() {
    return CGxCartSetup::Instance();
}

void AddEllipsoid(const std::string& id, double a, double rf) {
    CGxMapProjection::AddEllipsoid(new CGxEllipsoid("Ellipsoid " + id, id, a, rf));
    Setup().SetEllipsoidListModified();
}

void AddTm(const std::string& name, const std::string& ellipsoid, double centre) {
    CGxMapProjection::AddMapProjection(new CGxTransverseMercatorProjection(
        name, "Tests", ellipsoid, 0.9996, centre, 0, 500000, 0, true, true));
    Setup().SetMapProjectionListModified();
}

void Convert(const std::string& name, double lon, double lat, bool flat) {
    double x = 0, y = 0;
    bool valid = false;
    if (flat) {
        GxMapProjectionHandle handle = nullptr;
        int result = -1;
        C_GXMP_CREATE(name.c_str(), &handle, &result);
        if (handle) {
            C_GXMP_GEO2PROJ(handle, lon, lat, &x, &y);
            C_GXMP_DESTROY(&handle, &result);
            valid = true;
        }
    } else {
        CGxMapProjection projection(name);
        if (projection.GetProjection()) {
            projection.Geo2Proj(lon, lat, &x, &y);
            valid = true;
        }
    }
    if (valid)
        std::printf("%s %.3f %.3f\n", name.c_str(), x, y);
    else
        std::printf("%s unavailable\n", name.c_str());
}

void Check() {
    CGxMapProjectionList& list = Setup().GetMapProjectionList();
    int custom = 0;
    for (auto it = list.GetIteratorBegin(); it != list.GetIteratorEnd(); ++it) {
        if (!(*it)->CanEdit()) continue;
        ++custom;
        if (!Setup().GetEllipsoidList().GetEllipsoid((*it)->GetEllipsoidID())) {
            std::printf("check missing %s %s\n", (*it)->GetName().c_str(),
                        (*it)->GetEllipsoidID().c_str());
            status = 3;
        }
    }
    std::printf("check %d\n", custom);
}

void RewriteLoop() {
    auto* bulk =
        dynamic_cast<CGxTransverseMercatorProjection*>(CGxMapProjection::MapProjection("Bulk 0"));
    if (!bulk) std::exit(4);
    for (int round = 0;; ++round) {
        bulk->SetCentre(round * 1e-6);
        Setup().SetMapProjectionListModified();
        Setup().WriteModified();
        if (round == 0) {
            std::puts("ready");
            std::fflush(stdout);
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::string step = argv[i];
        auto arg = [&](int k) { return std::string(i + k < argc ? argv[i + k] : ""); };
        auto number = [&](int k) { return std::atof(arg(k).c_str()); };
        if (step == "add") {
            AddEllipsoid("E-" + arg(1), 6378000 + arg(1).size(), 300);
            AddTm("Site " + arg(1), "E-" + arg(1), 9);
            i += 1;
        } else if (step == "add-ellipsoid") {
            AddEllipsoid(arg(1), number(2), number(3));
            i += 3;
        } else if (step == "add-tm") {
            AddTm(arg(1), arg(2), number(3));
            i += 3;
        } else if (step == "set-centre") {
            auto* tm = dynamic_cast<CGxTransverseMercatorProjection*>(
                CGxMapProjection::MapProjection(arg(1)));
            if (tm) tm->SetCentre(number(2));
            i += 2;
        } else if (step == "rename") {
            if (CGxMapProjData* d = CGxMapProjection::MapProjection(arg(1))) d->SetName(arg(2));
            i += 2;
        } else if (step == "delete") {
            if (CGxMapProjData* d = CGxMapProjection::MapProjection(arg(1)))
                CGxMapProjection::DeleteMapProjection(d);
            i += 1;
        } else if (step == "delete-ellipsoid") {
            if (CGxEllipsoid* e = CGxMapProjection::EllipsoidFromID(arg(1)))
                CGxMapProjection::DeleteEllipsoid(e);
            Setup().SetEllipsoidListModified();
            i += 1;
        } else if (step == "bulk") {
            for (int n = 0; n < std::atoi(arg(1).c_str()); ++n)
                AddTm("Bulk " + std::to_string(n), "WE", n % 60);
            i += 1;
        } else if (step == "rewrite-loop") {
            RewriteLoop();
        } else if (step == "convert" || step == "convert-flat") {
            Convert(arg(1), number(2), number(3), step == "convert-flat");
            i += 3;
        } else if (step == "recent") {
            long count = 0;
            CGxMapProjection::XEnumMapProjectionsBuffer(CGxMapProjection::eProjectedSystems,
                                                        arg(1).c_str(), &count);
            i += 1;
        } else if (step == "check") {
            Check();
        } else if (step == "save") {
            std::puts(Setup().WriteModified() ? "saved" : "not saved");
        } else if (step == "report") {
            std::fputs(CGxCartSetup::GetReport().c_str(), stderr);
        } else if (step == "limit") {
            const rlimit limit{static_cast<rlim_t>(number(1)), static_cast<rlim_t>(number(1))};
            setrlimit(RLIMIT_FSIZE, &limit);
            i += 1;
        } else if (step == "print") {
            std::puts(arg(1).c_str());
            std::fflush(stdout);
            i += 1;
        } else if (step == "wait") {
            for (int tries = 0; tries < 20000 && access(arg(1).c_str(), F_OK) != 0; ++tries)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            i += 1;
        } else {
            std::fprintf(stderr, "unknown step %s\n", step.c_str());
            return 2;
        }
    }
    std::fflush(stdout);
    return status;
}
