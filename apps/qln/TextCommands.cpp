#include "TextCommands.h"

#include "TextInput.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <memory>
#include <string>
#include <vector>

namespace qln::tool
{

namespace
{

struct MatchOptions
{
    std::string pattern;
    std::vector<std::string> texts;
    bool ignoreCase = false;
};

struct CompareOptions
{
    std::string a;
    std::string b;
};

struct NumberOptions
{
    std::vector<std::string> texts;
    int base = 10;
};

struct FoldOptions
{
    std::vector<std::string> texts;
};

// The shortest text that reads back as the same double.
std::string DoubleText(double value)
{
    char buffer[64];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
    return error == std::errc() ? std::string(buffer, end) : std::string("?");
}

void RunMatch(const MatchOptions& options, CommandContext& context)
{
    TextInput input(context.Input());
    const AString pattern = input.One(options.pattern, "PATTERN");
    const std::vector<AString> texts = input.Many(options.texts);

    CommandResult result("text match");
    result.Data()["pattern"] = Utf8(pattern);
    result.Data()["caseSensitive"] = !options.ignoreCase;
    Json items = Json::array();
    bool allMatch = true;
    for (const AString& text : texts)
    {
        std::vector<AString> captures;
        const bool matches = text.Match(pattern, captures, !options.ignoreCase);
        allMatch = allMatch && matches;

        Json item = {{"text", Utf8(text)}, {"match", matches}};
        std::string line = Quoted(Utf8(text)) + (matches ? ": yes" : ": no");
        if (matches)
        {
            Json captureList = Json::array();
            for (const AString& capture : captures)
            {
                captureList.push_back(Utf8(capture));
                line += ' ' + Quoted(Utf8(capture));
            }
            item["captures"] = std::move(captureList);
        }
        items.push_back(std::move(item));
        result.AddLine(std::move(line));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allMatch)
        context.Report(kExitProblem);
}

void RunCompare(const CompareOptions& options, CommandContext& context)
{
    TextInput input(context.Input());
    const AString a = input.One(options.a, "A");
    const AString b = input.One(options.b, "B");

    const int order = AString::CompareNoCase(a, b);
    const int sign = order < 0 ? -1 : (order > 0 ? 1 : 0);
    const char* word = sign < 0 ? "less" : (sign > 0 ? "greater" : "equal");

    CommandResult result("text compare");
    result.Data()["a"] = Utf8(a);
    result.Data()["b"] = Utf8(b);
    result.Data()["result"] = sign;
    result.Data()["order"] = word;
    result.AddLine(word);
    context.Emit(result);
}

void RunNumber(const NumberOptions& options, CommandContext& context)
{
    TextInput input(context.Input());
    const std::vector<AString> texts = input.Many(options.texts);

    CommandResult result("text number");
    result.Data()["base"] = options.base;
    Json items = Json::array();
    bool allNumbers = true;
    for (const AString& text : texts)
    {
        int intValue = 0;
        unsigned unsignedValue = 0;
        double doubleValue = 0.0;
        const bool isInt = text.IsNumber(intValue, options.base);
        const bool isUnsigned = text.IsNumber(unsignedValue, options.base);
        // Floating-point forms are decimal only.
        const bool isDouble = options.base == 10 && text.IsNumber(doubleValue);
        allNumbers = allNumbers && (isInt || isUnsigned || isDouble);

        Json item = {{"text", Utf8(text)},
                     {"int", isInt ? Json(intValue) : Json(nullptr)},
                     {"unsigned", isUnsigned ? Json(unsignedValue) : Json(nullptr)},
                     {"double", isDouble ? Json(doubleValue) : Json(nullptr)}};
        items.push_back(std::move(item));

        std::string forms;
        const auto add = [&forms](const std::string& form)
        {
            if (!forms.empty())
                forms += ", ";
            forms += form;
        };
        if (isInt)
            add("int " + std::to_string(intValue));
        if (isUnsigned)
            add("unsigned " + std::to_string(unsignedValue));
        if (isDouble)
            add("double " + DoubleText(doubleValue));
        result.AddLine(Quoted(Utf8(text)) + ": " + (forms.empty() ? "not a number" : forms));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
    if (!allNumbers)
        context.Report(kExitProblem);
}

void RunFold(const FoldOptions& options, CommandContext& context)
{
    TextInput input(context.Input());
    const std::vector<AString> texts = input.Many(options.texts);

    CommandResult result("text fold");
    Json items = Json::array();
    for (const AString& text : texts)
    {
        AString folded = text;
        for (wchar_t& c : folded)
            c = static_cast<wchar_t>(AString::FoldCase(static_cast<char32_t>(c)));
        const std::string upper = Utf8(text.ToUpper());
        const std::string lower = Utf8(text.ToLower());
        items.push_back(
            {{"text", Utf8(text)}, {"upper", upper}, {"lower", lower}, {"folded", Utf8(folded)}});
        if (!result.Lines().empty())
            result.AddLine("");
        result.AddLine("upper: " + upper);
        result.AddLine("lower: " + lower);
        result.AddLine("folded: " + Utf8(folded));
    }
    result.Data()["results"] = std::move(items);
    context.Emit(result);
}

} // namespace

void AddTextCommands(CLI::App& app, CommandContext& context)
{
    CLI::App* text = app.add_subcommand("text", "Text operations of the framework's strings");
    text->require_subcommand(1);

    auto match = std::make_shared<MatchOptions>();
    CLI::App* matchCommand =
        text->add_subcommand("match", "Match whole texts against a wildcard pattern");
    matchCommand->footer("\"*\" matches any run of characters, \"?\" exactly one, and a back "
                         "slash makes the next pattern character literal.\nPrints yes and the "
                         "text of each \"*\", or no, for each text. Exit 1 when some text does "
                         "not match.");
    matchCommand->add_option("PATTERN", match->pattern, "Wildcard pattern")->required();
    matchCommand->add_option("TEXT", match->texts, "Texts to match")
        ->required()
        ->allow_extra_args();
    matchCommand->add_flag("-i,--ignore-case", match->ignoreCase,
                           "Ignore case (Unicode simple case folding)");
    matchCommand->callback([match, &context] { RunMatch(*match, context); });

    auto compare = std::make_shared<CompareOptions>();
    CLI::App* compareCommand =
        text->add_subcommand("compare", "Compare two texts ignoring case: less, equal or greater");
    compareCommand->add_option("A", compare->a, "First text")->required();
    compareCommand->add_option("B", compare->b, "Second text")->required();
    compareCommand->callback([compare, &context] { RunCompare(*compare, context); });

    auto number = std::make_shared<NumberOptions>();
    CLI::App* numberCommand =
        text->add_subcommand("number", "Read whole texts as int, unsigned and double numbers");
    numberCommand->footer("Prints the value of each form that the whole text is. Exit 1 when "
                          "some text is none of them.\nPut -- before the texts when one starts "
                          "with \"-\" and a letter.");
    numberCommand->add_option("TEXT", number->texts, "Texts to read")
        ->required()
        ->allow_extra_args();
    numberCommand
        ->add_option("-b,--base", number->base,
                     "Base of integers, 2 to 36 (doubles are read in base 10 only)")
        ->check(CLI::Range(2, 36));
    numberCommand->callback([number, &context] { RunNumber(*number, context); });

    auto fold = std::make_shared<FoldOptions>();
    CLI::App* foldCommand =
        text->add_subcommand("fold", "Upper case, lower case and case-folded forms of texts");
    foldCommand->add_option("TEXT", fold->texts, "Texts to map")->required()->allow_extra_args();
    foldCommand->callback([fold, &context] { RunFold(*fold, context); });
}

} // namespace qln::tool
