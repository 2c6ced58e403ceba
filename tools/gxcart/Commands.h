#pragma once

#include "CliSupport.h"

// One function per subcommand; each answers the process exit status and
// prints its own help for --help.
int GxRunConvert(const GxArgs& args);
int GxRunInfo(const GxArgs& args);
int GxRunList(const GxArgs& args);
int GxRunDistance(const GxArgs& args);
int GxRunGraticule(const GxArgs& args);
