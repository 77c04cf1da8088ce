// Atomic saving: the bytes go to a temporary file in the target's own folder, which is
// flushed to the disk and then renamed over the target. Whatever happens on the way (a full
// disk, a crash, a missing folder), the target holds either its old content or the whole
// new content, never a part; a failed save removes its temporary file.
#pragma once

#include "AString.h"
#include "PlinthExport.h"

#include <string_view>

namespace io
{

// Saves `bytes` as the file `path` (back slashes or slashes). A new file gets the usual
// permissions for new files, a replaced one keeps its own; a symbolic link is followed and
// the file it names is replaced. Returns false, and sets `error` to the reason in plain
// words, when the file could not be saved; the old file is then untouched.
//   WriteFileAtomically(L"C:\\nope\\a.txt", "x", &why) => false,
//     why = "cannot create a temporary file in 'C:/nope': No such file or directory"
PLINTH_API bool WriteFileAtomically(const AString& path, std::string_view bytes,
                                    AString* error = nullptr);

} // namespace io
