#pragma once
// A library file is checked before it is loaded. The system loader maps a library's segments
// as its headers describe them; a file cut short on disk then faults (SIGBUS) at the first
// touch of a page past its end, inside the loader, where nothing can catch it.
#include <string>

namespace korval {

// Why the file cannot be a whole shared library of this machine's kind; empty when its headers
// and everything they point to lie within the file.
std::string LibraryFileProblem(const std::string& path);

} // namespace korval
