// Project files in the block text format: reading a file into a tree, saving a tree
// atomically, and the file-level services a command-line tool offers (check, canonical
// re-format, figures). Errors carry the line and column of the problem, or none when the
// file itself could not be read; BlockTextError::Describe(path) gives the usual
// "file:line:column: reason" form.
#pragma once

#include "AString.h"
#include "Block.h"
#include "BlockReader.h"
#include "BlockStats.h"
#include "PlinthExport.h"

#include <string>

namespace io
{

// Reads the file `path` into `root`; on failure `root` is unchanged.
PLINTH_API bool ReadBlockFile(const AString& path, CBlock_func& root,
                              BlockTextError* error = nullptr,
                              const BlockReadLimits& limits = BlockReadLimits());

// Saves `root` atomically in its canonical text (WriteBlockText). A tree whose error state
// is set is not saved, since items are missing from it; the error then says so.
PLINTH_API bool WriteBlockFile(const AString& path, const CBlock& root, AString* error = nullptr);

// Whether the file reads as a block file.
PLINTH_API bool CheckBlockFile(const AString& path, BlockTextError* error = nullptr);

// The canonical text of the file (what WriteBlockFile would save for it).
PLINTH_API bool FormatBlockFile(const AString& path, std::string& text,
                                BlockTextError* error = nullptr);

// Re-writes the file in its canonical text, atomically; a file already canonical is left
// alone. `changed` (when given) tells whether the file was re-written.
PLINTH_API bool ReformatBlockFile(const AString& path, bool* changed = nullptr,
                                  BlockTextError* error = nullptr);

// The figures of the file's tree.
PLINTH_API bool GetBlockFileStats(const AString& path, BlockStats& stats,
                                  BlockTextError* error = nullptr);

} // namespace io
