// Whole files and folders of the system: opening's failures, copying, making, removing, listing. Paths are
// the system's own, in UTF-8; a failure is the run-time failure that stands for what the system refused.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessera {

class FileStore;

// The failure of an opening: a missing file is 53, a missing folder 76.
[[noreturn]] void FailOpening(FileStore& files, const std::string& path, int error);

// True for anything that can be opened as a file, and for no folder.
bool IsFile(FileStore& files, const std::string& path);

// Copies a file's bytes and permissions. A target that exists is replaced only when the whole copy has been
// written. Failure 70 when both are one file.
void CopyFile(FileStore& files, const std::string& source, const std::string& target);

// False when nothing was removed. A folder is not removed.
bool RemoveFile(FileStore& files, const std::string& path);

// One folder. Failures: 75 when it exists, 76 when the one above is missing.
void MakeFolder(FileStore& files, const std::string& path);
// One empty folder. Failures: 76 when it is missing, 75 when it holds something.
void RemoveFolder(FileStore& files, const std::string& path);

// True when `name` fits `pattern` blind to case: "*" stands for any characters, "?" for one, and "*.*" for
// every name. Both are program text.
bool FitsPattern(std::string_view name, std::string_view pattern);

// Names of the plain files in a folder that fit the pattern, in order blind to case. A missing folder has
// none. OPEN: names with characters beyond the program's code page are left out, since no program could open
// them; names that begin with a point, which this system hides, only fit a pattern that does.
std::vector<std::string> FilesThatFit(FileStore& files, const std::string& folder, std::string_view pattern);

// The first file of that name, blind to case, in a folder or below it: a folder's own files come before those
// of the folders in it. Its path from the folder on with "\" between, in program text.
std::optional<std::string> FindInTree(FileStore& files, const std::string& folder, std::string_view name);

}  // namespace tessera
