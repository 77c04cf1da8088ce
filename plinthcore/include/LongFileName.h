// LongFileName: a file or folder name as the host's modules write it, with the questions they
// ask about it (folder part, name, extension, existence) and wildcard searches of a folder.
// Both "/" and "\" separate folders; the text is kept as written, and back slashes become "/"
// only where the file system is asked. Nothing here throws: failures are return values.
#pragma once

#include "AString.h"
#include "PlinthExport.h"

#include <memory>

class PLINTH_API LongFileName
{
public:
    LongFileName();
    explicit LongFileName(const AString& path);
    // A copy carries the name, not an open search of the original.
    LongFileName(const LongFileName& other);
    LongFileName(LongFileName&& other) noexcept;
    LongFileName& operator=(const LongFileName& other);
    LongFileName& operator=(LongFileName&& other) noexcept;
    ~LongFileName();

    // Parts of the name -----------------------------------------------------------------
    // FilePath() == DirPath() + NameWithExt() always holds.

    // The full path text. This platform has no short names to expand, so it is the text as
    // given (plus the separator MakeItDirectory adds): not made absolute, not case-corrected,
    // separators as written.
    AString FilePath() const { return mPath; }
    // The folder part up to and including the last separator; empty without a separator.
    //   "C:\lib\a.s2p" => "C:\lib\";  "lib/x/" => "lib/x/";  "a.s2p" => ""
    AString DirPath() const;
    // Everything after the last separator.
    //   "C:\lib\a.s2p" => "a.s2p";  "C:\lib\" => ""
    AString NameWithExt() const;
    // The name without its last extension (see Ext).
    //   "x\Acme.Inc" => "Acme";  "a.b.lib" => "a.b";  "x\.profile" => ".profile";  "a." => "a"
    AString NameWOExt() const;
    // The last extension of the name, without its dot; empty when there is none. A dot that
    // starts the name does not start an extension, and "." and ".." have none.
    //   "a.S2P" => "S2P";  "a.b.lib" => "lib";  "Makefile" => "";  ".profile" => "";  "a." => ""
    AString Ext() const;

    // Marks this as a folder name: appends a back slash unless the text is empty or already
    // ends in a separator, so that the whole path is its DirPath.
    //   "C:\lib" => "C:\lib\";  "C:/lib/" => unchanged
    void MakeItDirectory();

    // The file system ---------------------------------------------------------------------

    // Whether something exists under this name (symbolic links are followed; a dangling link
    // does not exist). False for an empty name.
    bool Exists() const;
    // Whether this names an existing folder (or a link to one).
    bool IsExistingDirectory() const;
    // For an entry produced by a search, whether it was a folder when the folder was read
    // (no new look-up); for any other name, IsExistingDirectory().
    bool IsDirectory() const;
    // Creates the folder this names together with every missing parent. True when the folder
    // exists afterwards (also when it existed already); false for an empty name or when a file
    // or a permission is in the way.
    bool CreateDirectories() const;

    // Searching ---------------------------------------------------------------------------
    // This name is the pattern: a folder part and a name pattern in which "*" matches any run
    // of characters and "?" one character, ignoring case (see CFileUtilities::MatchFileName).
    //   LongFileName("C:\lib\*.s*p"), LongFileName(folder + "*")
    // FindFirst reads the whole folder at once and hands entries out in a stable order
    // (ignoring case, then exact text); each found entry has the folder part of the pattern
    // followed by the entry's name as its FilePath and knows whether it is a folder. The
    // entries "." and ".." are never reported: a caller that skips them by name still works.
    // A missing or unreadable folder, an empty name pattern or a link loop finds nothing.

    // Starts (or restarts) the search; false when nothing matches.
    bool FindFirst(LongFileName& found);
    // The next entry; false at the end, or when no search is open.
    bool FindNext(LongFileName& found);
    // Ends the search and releases what it read. Harmless when no search is open.
    void FindClose();

private:
    struct Search;

    AString mPath;
    bool mIsFound = false;          // made by a search
    bool mIsFoundDirectory = false; // ... and a folder when it was listed
    std::unique_ptr<Search> mSearch;
};
