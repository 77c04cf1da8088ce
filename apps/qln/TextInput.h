// Text arguments that may come from standard input: an argument "-" stands for lines read
// from it (UTF-8, one text per line, a trailing carriage return dropped).
#pragma once

#include "AString.h"

#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qln::tool
{

class TextInput
{
public:
    explicit TextInput(std::istream& input);

    // The argument as a text; for "-" the next line of the input. Throws InputError naming
    // `what` when the input has no line left.
    //   One("abc", "A")  => "abc"
    //   One("-", "A")    => the next input line
    AString One(const std::string& argument, std::string_view what);
    // The arguments as texts, each "-" replaced by every remaining line of the input (so a
    // second "-" adds nothing).
    //   Many({"a", "-", "b"}) with input "x\ny\n" => {"a", "x", "y", "b"}
    std::vector<AString> Many(const std::vector<std::string>& arguments);

private:
    // The next line, or nothing at the end of the input; InputError when reading fails.
    std::optional<std::string> NextLine();

    std::istream& mInput;
};

} // namespace qln::tool
