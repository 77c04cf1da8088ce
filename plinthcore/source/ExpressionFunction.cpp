#include "ExpressionFunction.h"

#include "AString.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace
{
using Args = std::span<const double>;

bool Sin(Args a, double& r)
{
    r = std::sin(a[0]);
    return true;
}
bool Cos(Args a, double& r)
{
    r = std::cos(a[0]);
    return true;
}
bool Tan(Args a, double& r)
{
    r = std::tan(a[0]);
    return true;
}
bool Asin(Args a, double& r)
{
    r = std::asin(a[0]);
    return a[0] >= -1.0 && a[0] <= 1.0;
}
bool Acos(Args a, double& r)
{
    r = std::acos(a[0]);
    return a[0] >= -1.0 && a[0] <= 1.0;
}
bool Atan(Args a, double& r)
{
    r = std::atan(a[0]);
    return true;
}
bool Atan2(Args a, double& r)
{
    r = std::atan2(a[0], a[1]);
    return true;
}
bool Sinh(Args a, double& r)
{
    r = std::sinh(a[0]);
    return true;
}
bool Cosh(Args a, double& r)
{
    r = std::cosh(a[0]);
    return true;
}
bool Tanh(Args a, double& r)
{
    r = std::tanh(a[0]);
    return true;
}
bool Exp(Args a, double& r)
{
    r = std::exp(a[0]);
    return true;
}
bool Log(Args a, double& r)
{
    r = a[0] > 0.0 ? std::log(a[0]) : 0.0;
    return a[0] > 0.0;
}
bool Log10(Args a, double& r)
{
    r = a[0] > 0.0 ? std::log10(a[0]) : 0.0;
    return a[0] > 0.0;
}
bool Sqrt(Args a, double& r)
{
    r = a[0] >= 0.0 ? std::sqrt(a[0]) : 0.0;
    return a[0] >= 0.0;
}
bool Abs(Args a, double& r)
{
    r = std::fabs(a[0]);
    return true;
}
bool Min(Args a, double& r)
{
    r = *std::min_element(a.begin(), a.end());
    return true;
}
bool Max(Args a, double& r)
{
    r = *std::max_element(a.begin(), a.end());
    return true;
}
bool Pow(Args a, double& r)
{
    r = std::pow(a[0], a[1]);
    return !std::isnan(r); // a negative base with a fractional exponent
}
bool Floor(Args a, double& r)
{
    r = std::floor(a[0]);
    return true;
}
bool Ceil(Args a, double& r)
{
    r = std::ceil(a[0]);
    return true;
}
bool Round(Args a, double& r)
{
    r = std::round(a[0]);
    return true;
}
bool Int(Args a, double& r)
{
    r = std::trunc(a[0]);
    return true;
}
bool Sgn(Args a, double& r)
{
    r = a[0] > 0.0 ? 1.0 : (a[0] < 0.0 ? -1.0 : 0.0);
    return true;
}
bool Hypot(Args a, double& r)
{
    r = std::hypot(a[0], a[1]);
    return true;
}
bool Mod(Args a, double& r)
{
    r = a[1] != 0.0 ? std::fmod(a[0], a[1]) : 0.0;
    return a[1] != 0.0;
}
bool If(Args a, double& r)
{
    r = a[0] != 0.0 ? a[1] : a[2];
    return true;
}
bool Db(Args a, double& r)
{
    r = a[0] != 0.0 ? 20.0 * std::log10(std::fabs(a[0])) : 0.0;
    return a[0] != 0.0;
}

constexpr std::array<ExpressionFunction, 28> kFunctions{{
    {L"sin", 1, 1, Sin, false},     {L"cos", 1, 1, Cos, false},     {L"tan", 1, 1, Tan, false},
    {L"asin", 1, 1, Asin, false},   {L"acos", 1, 1, Acos, false},   {L"atan", 1, 1, Atan, false},
    {L"atan2", 2, 2, Atan2, false}, {L"sinh", 1, 1, Sinh, false},   {L"cosh", 1, 1, Cosh, false},
    {L"tanh", 1, 1, Tanh, false},   {L"exp", 1, 1, Exp, false},     {L"log", 1, 1, Log, false},
    {L"ln", 1, 1, Log, false},      {L"log10", 1, 1, Log10, false}, {L"sqrt", 1, 1, Sqrt, false},
    {L"abs", 1, 1, Abs, true},      {L"min", 1, -1, Min, true},     {L"max", 1, -1, Max, true},
    {L"pow", 2, 2, Pow, false},     {L"floor", 1, 1, Floor, true},  {L"ceil", 1, 1, Ceil, true},
    {L"round", 1, 1, Round, true},  {L"int", 1, 1, Int, true},      {L"sgn", 1, 1, Sgn, false},
    {L"hypot", 2, 2, Hypot, true},  {L"mod", 2, 2, Mod, true},      {L"if", 3, 3, If, true},
    {L"db", 1, 1, Db, false},
}};

struct Constant
{
    const wchar_t* name;
    double value;
};
constexpr std::array<Constant, 2> kConstants{{{L"pi", std::numbers::pi}, {L"e", std::numbers::e}}};
} // namespace

const ExpressionFunction* ExpressionFunctions::Find(std::wstring_view name)
{
    for (const ExpressionFunction& function : kFunctions)
    {
        if (AString::EqualNoCase(name, function.name))
        {
            return &function;
        }
    }
    return nullptr;
}

std::span<const ExpressionFunction> ExpressionFunctions::All()
{
    return kFunctions;
}

bool ExpressionFunctions::AcceptsArgumentCount(const ExpressionFunction& function, int count)
{
    return count >= function.minArguments &&
           (function.maxArguments < 0 || count <= function.maxArguments);
}

bool ExpressionFunctions::FindConstant(std::wstring_view name, double& value,
                                       const wchar_t** spelling)
{
    for (const Constant& constant : kConstants)
    {
        if (AString::EqualNoCase(name, constant.name))
        {
            value = constant.value;
            if (spelling != nullptr)
            {
                *spelling = constant.name;
            }
            return true;
        }
    }
    return false;
}
