#pragma once

#include <string>

// Writing a file so that its readers see the old or the new content and
// nothing in between, whatever happens during the write: a crash, a killed
// process, a full disk, a file-size limit. Shared by the keyword files and the
// plain text files the catalogues keep in the user's folder.

namespace gxzpf {

// The whole content of a regular file; false when it cannot be read.
bool ReadWhole(const std::string& path, std::string& out);

// Replaces the content of path by text. The text goes to a new temporary file
// in path's folder (".<name>.<process id>-<n>.tmp"), which is flushed to the
// disk and renamed over path; then the folder itself is flushed, so the
// rename survives a power cut. The new file keeps the permissions of the one
// it replaces. On failure answers false with message naming path and the
// reason; the old file is as it was and the temporary file is removed.
//
// A file-size limit (RLIMIT_FSIZE) makes the write fail like a full disk: the
// SIGXFSZ the system raises with it, whose default action ends the process,
// is held back on the writing thread and discarded. A library must not end
// the program that loaded it.
bool WriteReplacing(const std::string& path, const std::string& text, std::string& message);

// Called before a keyword file is replaced. A file that is missing or reads
// completely needs nothing (keptAs empty). A file that cannot be read
// completely is kept beside itself as "<name>.unreadable-<UTC time>" (for
// example custom_projection.zpf.unreadable-20240611T093012Z), and keptAs
// names the copy; no copy is made when an earlier one already holds every
// part that cannot be read. False, with message, when the file cannot be read
// to judge it or the copy cannot be made: it must then not be replaced.
bool KeepUnreadable(const std::string& path, std::string& keptAs, std::string& message);

// Removes the temporary files that writers of path which no longer run left
// behind (a process killed while writing); answers how many were removed.
int RemoveStaleTemporaries(const std::string& path);

}  // namespace gxzpf
