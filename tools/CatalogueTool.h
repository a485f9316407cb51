#pragma once

#include <ostream>
#include <string>
#include <vector>

// The catalogue command-line tool: converts catalogue files (*.qxp) to and from CSV sheets, prints,
// validates and merges them. Results go to `out`, failures to `err`, both UTF-8.

inline constexpr int kExitDone = 0;
inline constexpr int kExitBadInput = 1;  // a malformed file or sheet; nothing was written
inline constexpr int kExitBadUsage = 2;

// `arguments` without the program's own name.
int RunCatalogueTool(const std::vector<std::u16string>& arguments, std::ostream& out, std::ostream& err);
