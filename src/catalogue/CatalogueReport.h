#pragma once

#include <string>

// What the catalogues have to tell about their files: parts of a file that
// could not be read and were skipped, a damaged file kept aside before it was
// replaced, a custom file that could not be written. The catalogues are
// filled when the library is loaded, before any caller can ask, so the
// messages wait here until a caller (the gxcart tool, a host application)
// takes them. Each message names its file.

// Adds one message.
void GxReportCatalogue(std::string message);
// The messages so far, one a line; GxTakeCatalogueReport also clears them.
std::string GxPeekCatalogueReport();
std::string GxTakeCatalogueReport();
