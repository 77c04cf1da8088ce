#include "Assert.h"

#include <cstdio>
#include <cstring>
#include <utility>

namespace
{
struct AssertState
{
    AssertHandler handler;
    AssertLogSink sink;
    bool ignoreAll = false;
    bool log = true;
};

AssertState& State()
{
    static AssertState state;
    return state;
}

// Only the file name: build directories differ between machines.
const char* BaseName(const char* file)
{
    if (file == nullptr)
    {
        return "";
    }
    const char* base = file;
    for (const char* c = file; *c; ++c)
    {
        if (*c == '/' || *c == '\\')
        {
            base = c + 1;
        }
    }
    return base;
}
} // namespace

std::string AssertText(const char* expression)
{
    if (expression == nullptr)
    {
        return std::string();
    }
    const std::size_t n = std::strlen(expression);
    // Message-style: !"text", possibly with blanks after the '!'.
    std::size_t i = 0;
    if (n > 0 && expression[0] == '!')
    {
        i = 1;
        while (i < n && expression[i] == ' ')
        {
            ++i;
        }
        if (i < n && expression[i] == '"' && n >= i + 2 && expression[n - 1] == '"')
        {
            std::string text;
            for (std::size_t k = i + 1; k + 1 < n; ++k)
            {
                // Undo the escapes of the literal as written in source.
                if (expression[k] == '\\' && k + 2 < n)
                {
                    ++k;
                }
                text.push_back(expression[k]);
            }
            return text;
        }
    }
    return std::string(expression);
}

void LogAssertFailure(const char* expression, const char* file, int line)
{
    std::string text = std::string(BaseName(file)) + ":" + std::to_string(line) +
                       ": assertion failed: " + AssertText(expression);
    const AssertState& state = State();
    if (state.sink)
    {
        state.sink(text);
    }
    else
    {
        std::fprintf(stderr, "%s\n", text.c_str());
    }
}

void ProcessAssertFailure(const char* expression, const char* file, int line, bool& ignoreSite)
{
    AssertState& state = State();
    if (state.log)
    {
        LogAssertFailure(expression, file, line);
    }
    if (state.ignoreAll || ignoreSite || !state.handler)
    {
        return;
    }
    // Copy: the handler may replace itself.
    const AssertHandler handler = state.handler;
    switch (handler(AssertInfo{expression, file, line}))
    {
    case AssertAction::kContinue: break;
    case AssertAction::kIgnoreSite: ignoreSite = true; break;
    case AssertAction::kIgnoreAll: state.ignoreAll = true; break;
    }
}

AssertHandler SetAssertHandler(AssertHandler handler)
{
    return std::exchange(State().handler, std::move(handler));
}

void SetIgnoreAllAsserts(bool ignore)
{
    State().ignoreAll = ignore;
}

bool GetIgnoreAllAsserts()
{
    return State().ignoreAll;
}

void SetLogAssertFailures(bool log)
{
    State().log = log;
}

bool GetLogAssertFailures()
{
    return State().log;
}

AssertLogSink SetAssertLogSink(AssertLogSink sink)
{
    return std::exchange(State().sink, std::move(sink));
}

AssertCapture::AssertCapture()
    : mPreviousIgnoreAll(GetIgnoreAllAsserts()), mPreviousLog(GetLogAssertFailures())
{
    SetIgnoreAllAsserts(false);
    SetLogAssertFailures(false);
    mPreviousHandler = SetAssertHandler([this](const AssertInfo& info) {
        mEntries.push_back(Entry{AssertText(info.expression),
                                 info.expression ? info.expression : "", BaseName(info.file),
                                 info.line});
        return AssertAction::kContinue;
    });
}

AssertCapture::~AssertCapture()
{
    SetAssertHandler(std::move(mPreviousHandler));
    SetIgnoreAllAsserts(mPreviousIgnoreAll);
    SetLogAssertFailures(mPreviousLog);
}

std::vector<std::string> AssertCapture::Texts() const
{
    std::vector<std::string> texts;
    texts.reserve(mEntries.size());
    for (const Entry& entry : mEntries)
    {
        texts.push_back(entry.text);
    }
    return texts;
}
