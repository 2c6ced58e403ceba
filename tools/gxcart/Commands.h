#pragma once

#include <string>
#include <vector>

#include "CliSupport.h"

// One function per subcommand; each answers the process exit status, prints
// its own help for --help, reads and writes only through io and reports what
// it could not write.
int GxRunConvert(const GxArgs& args, const GxIo& io);
int GxRunInfo(const GxArgs& args, const GxIo& io);
int GxRunList(const GxArgs& args, const GxIo& io);
int GxRunDistance(const GxArgs& args, const GxIo& io);
int GxRunGraticule(const GxArgs& args, const GxIo& io);

// The system catalogue files missing from the data folder the library read
// at load; a copy of the library without them knows hardly any coordinate
// system.
std::vector<std::string> GxMissingSystemCatalogueFiles();
