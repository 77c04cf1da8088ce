// The one-letter escapes of control characters that C string literals and the block text
// format share: "\n" stands for a line feed, "\t" for a tab, and so on. Private to plinthcore.
#pragma once

namespace plinth::detail
{
struct ControlEscape
{
    char letter;  // what follows the back slash
    char control; // the character it stands for
};

inline constexpr ControlEscape kControlEscapes[] = {
    {'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'v', '\v'}, {'a', '\a'}, {'b', '\b'}, {'f', '\f'},
};

// The control character that a back slash and `letter` stand for, or -1.
//   'n' => '\n', 'f' => '\f', 'x' => -1
constexpr int ControlOfEscape(char letter)
{
    for (const ControlEscape& escape : kControlEscapes)
    {
        if (escape.letter == letter)
        {
            return escape.control;
        }
    }
    return -1;
}

// The letter that escapes `control`, or 0 when it has none.
//   '\n' => 'n', '\0' => 0
constexpr char EscapeOfControl(char control)
{
    for (const ControlEscape& escape : kControlEscapes)
    {
        if (escape.control == control)
        {
            return escape.letter;
        }
    }
    return 0;
}
} // namespace plinth::detail
