// Splits a command line into words the way a POSIX shell does for simple quoting: blanks
// separate words; 'single quotes' keep everything literally; "double quotes" keep everything
// but a back slash before " \ $ or `; outside quotes a back slash makes the next character
// literal. No expansion of any kind happens.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qln::tool
{

struct ShellWordsResult
{
    std::vector<std::string> words;
    // Empty on success; otherwise what is wrong ("unterminated double quote", ...) and
    // `words` holds nothing.
    std::string error;
};

//   text match '*[*]' "a b"   => {"text", "match", "*[*]", "a b"}
//   a\ b "x\"y" ''            => {"a b", "x\"y", ""}
//   "a\*"                     => {"a\*"} (the back slash stays inside double quotes)
//   'open                     => error "unterminated single quote"
ShellWordsResult SplitShellWords(std::string_view line);

} // namespace qln::tool
