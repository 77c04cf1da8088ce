// The functions and constants that expressions know. Names compare ignoring case and are
// re-spelled as the table writes them (lower case).
//   sin cos tan asin acos atan atan2 sinh cosh tanh exp log ln log10 sqrt abs min max pow
//   floor ceil round int sgn hypot mod if db;  constants pi and e
//   log is the natural logarithm (ln its alias); int truncates toward zero; if(c, a, b) is a
//   when c is not 0, else b; db(x) is 20*log10(|x|); min and max take one or more arguments.
#pragma once

#include "PlinthExport.h"

#include <span>
#include <string_view>

struct ExpressionFunction
{
    const wchar_t* name;
    int minArguments;
    int maxArguments; // -1: any number from minArguments on
    // Computes the result; false when the arguments lie outside the function's domain.
    bool (*apply)(std::span<const double> arguments, double& result);
    // Whether the result carries the unit of its value arguments (abs, min, max, ...).
    bool keepsUnit;
};

class PLINTH_API ExpressionFunctions
{
public:
    ExpressionFunctions() = delete;

    // The function called `name`, or null.
    static const ExpressionFunction* Find(std::wstring_view name);
    static std::span<const ExpressionFunction> All();
    // Whether `count` arguments suit `function`.
    static bool AcceptsArgumentCount(const ExpressionFunction& function, int count);
    // The constant called `name`: its value and its spelling; false when there is none.
    static bool FindConstant(std::wstring_view name, double& value, const wchar_t** spelling);
};
