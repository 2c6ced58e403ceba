#include "catalogue/CartSetup.h"

#include "catalogue/PlatformFolders.h"

namespace {
const char* const kSystemEllipsoids = "ellipsoid.zpf";
const char* const kCustomEllipsoids = "custom_ellipsoid.zpf";
const char* const kCustomProjections = "custom_projection.zpf";
}  // namespace

CGxCartSetup& CGxCartSetup::Instance() {
    static CGxCartSetup setup;
    return setup;
}

CGxCartSetup::CGxCartSetup() = default;

CGxCartSetup::~CGxCartSetup() { WriteModified(); }

void CGxCartSetup::ReadData(const std::string& dataPath_, const std::string& userPath_) {
    userPath = userPath_;
    dataPath = dataPath_;
    // An empty folder means it could not be determined: nothing is read from
    // the working directory instead.
    if (!dataPath.empty()) ellipsoids.ReadEllipsoids(dataPath + kSystemEllipsoids, false);
    if (!userPath.empty()) ellipsoids.ReadEllipsoids(userPath + kCustomEllipsoids, true);
    ellipsoids.GenerateCompleteList();
    projections.InitMapProjections(dataPath, userPath);
}

void CGxCartSetup::WriteModified() {
    if (userPath.empty()) return;
    if (projectionListModified && GxEnsureFolder(userPath)) {
        if (projections.WriteCustomMapProjections(userPath + kCustomProjections))
            projectionListModified = false;
    }
    if (ellipsoidListModified && GxEnsureFolder(userPath)) {
        // A failed write leaves the previous file as it was.
        if (ellipsoids.WriteCustomEllipsoids(userPath + kCustomEllipsoids))
            ellipsoidListModified = false;
    }
}
