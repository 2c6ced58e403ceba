// The gnomonic projection is not implemented; every way into it stops the
// process with a message on standard error.

#include "projections/Gnomic.h"

#include <cstdio>
#include <cstdlib>

namespace {
[[noreturn]] void NotImplemented() {
    std::fputs("Gnomic projection not implemented yet\n", stderr);
    std::fflush(stderr);
    std::abort();
}
}  // namespace

CGxGnomic::CGxGnomic() {
    NotImplemented();
}

const char* CGxGnomic::GetName() const {
    return "Gnomic";
}

void CGxGnomic::Geo2Proj(double, double, double*, double*) const {
    NotImplemented();
}

void CGxGnomic::Proj2Geo(double, double, double*, double*) const {
    NotImplemented();
}

CGxProjection* CGxGnomic::Clone() const {
    return new CGxGnomic(*this);
}

void CGxGnomic::TransferParameters(CGxPRJParser&) const {}
