#pragma once

#include <string>

// The few places the catalogues meet the operating system. Every folder text
// ends with '/'; an empty text means the folder could not be determined.

// Folder of libgxcart.so itself.
std::string GxLibraryFolder();

// Folder of the system catalogue files: the library's folder, or, when
// "ellipsoid.zpf" is not there, "../share/gxcart/" next to it (the installed
// layout lib/ + share/gxcart/).
std::string GxDataFolder();

// The user's application-data folder: $XDG_DATA_HOME/gxcart/ when that
// variable is set and absolute, else $HOME/.local/share/gxcart/. Not created.
std::string GxUserFolder();

// Creates a folder (and its parents) when it does not exist; true when it
// exists afterwards.
bool GxEnsureFolder(const std::string& folder);
