#include "Assert.h"

#include "ControlEscapes.h"

#include <atomic>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <utility>

namespace
{
struct AssertState
{
    std::mutex mutex; // guards handler, sink and capture
    AssertHandler handler;
    AssertLogSink sink;
    AssertCapture* capture = nullptr;
    std::atomic<bool> ignoreAll{false};
    std::atomic<bool> log{true};
};

AssertState& State()
{
    static AssertState state;
    return state;
}

// Set while this thread runs the handler or the log sink, so that a failure inside them cannot
// recurse into them again.
thread_local bool tInCallback = false;

class CallbackScope
{
public:
    CallbackScope() { tInCallback = true; }
    ~CallbackScope() { tInCallback = false; }
    CallbackScope(const CallbackScope&) = delete;
    CallbackScope& operator=(const CallbackScope&) = delete;
};

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

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

int HexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// Reads one escape sequence that starts after the back slash at `text[i]`; appends the
// character it stands for and advances `i` past it. False for a malformed escape.
bool ReadEscape(const char* text, std::size_t n, std::size_t& i, std::string& out)
{
    if (i >= n)
    {
        return false;
    }
    const char c = text[i++];
    if (const int control = plinth::detail::ControlOfEscape(c); control >= 0)
    {
        out.push_back(static_cast<char>(control));
        return true;
    }
    switch (c)
    {
    case '\\':
    case '\'':
    case '"':
    case '?':
        out.push_back(c);
        return true;
    case 'x':
    {
        int value = 0;
        std::size_t digits = 0;
        for (int d; i < n && (d = HexDigit(text[i])) >= 0; ++i, ++digits)
        {
            value = (value * 16 + d) & 0xFF;
        }
        if (digits == 0)
        {
            return false;
        }
        out.push_back(static_cast<char>(value));
        return true;
    }
    default:
        if (c >= '0' && c <= '7')
        {
            int value = c - '0';
            for (int k = 0; k < 2 && i < n && text[i] >= '0' && text[i] <= '7'; ++k, ++i)
            {
                value = value * 8 + (text[i] - '0');
            }
            out.push_back(static_cast<char>(value & 0xFF));
            return true;
        }
        return false;
    }
}

// The content of `text[i..n)` when it is nothing but one or more adjacent narrow string
// literals separated by blanks; false otherwise.
bool ReadLiterals(const char* text, std::size_t n, std::size_t i, std::string& out)
{
    bool any = false;
    while (true)
    {
        while (i < n && IsBlank(text[i]))
        {
            ++i;
        }
        if (i == n)
        {
            return any;
        }
        if (text[i] != '"')
        {
            return false;
        }
        ++i;
        while (true)
        {
            if (i >= n)
            {
                return false; // unterminated
            }
            const char c = text[i++];
            if (c == '"')
            {
                break;
            }
            if (c == '\\')
            {
                if (!ReadEscape(text, n, i, out))
                {
                    return false;
                }
                continue;
            }
            out.push_back(c);
        }
        any = true;
    }
}

void WriteToStandardError(const char* expression, const char* file, int line) noexcept
{
    std::fprintf(stderr, "%s:%d: assertion failed: %s\n", BaseName(file), line,
                 expression ? expression : "");
}
} // namespace

std::string AssertText(const char* expression)
{
    if (expression == nullptr)
    {
        return std::string();
    }
    const std::size_t n = std::strlen(expression);
    if (n > 0 && expression[0] == '!')
    {
        std::string text;
        if (ReadLiterals(expression, n, 1, text))
        {
            return text;
        }
    }
    return std::string(expression, n);
}

void LogAssertFailure(const char* expression, const char* file, int line) noexcept
{
    try
    {
        const std::string text = std::string(BaseName(file)) + ":" + std::to_string(line) +
                                 ": assertion failed: " + AssertText(expression);
        AssertLogSink sink;
        if (!tInCallback)
        {
            AssertState& state = State();
            std::lock_guard lock(state.mutex);
            sink = state.sink;
        }
        if (sink)
        {
            CallbackScope scope;
            sink(text);
        }
        else
        {
            std::fprintf(stderr, "%s\n", text.c_str());
        }
    }
    catch (...)
    {
        WriteToStandardError(expression, file, line);
    }
}

void ProcessAssertFailure(const char* expression, const char* file, int line,
                          bool& ignoreSite) noexcept
{
    AssertState& state = State();
    if (state.log.load(std::memory_order_relaxed))
    {
        LogAssertFailure(expression, file, line);
    }
    AssertHandler handler;
    {
        std::lock_guard lock(state.mutex);
        if (state.capture != nullptr)
        {
            try
            {
                state.capture->Record(expression, file, line);
            }
            catch (...)
            {
                WriteToStandardError(expression, file, line);
            }
            return;
        }
        if (tInCallback || state.ignoreAll.load(std::memory_order_relaxed) || ignoreSite ||
            !state.handler)
        {
            return;
        }
        try
        {
            // A copy, called outside the lock: the handler may replace itself.
            handler = state.handler;
        }
        catch (...)
        {
            return;
        }
    }
    AssertAction action = AssertAction::kContinue;
    try
    {
        CallbackScope scope;
        action = handler(AssertInfo{expression, file, line});
    }
    catch (...)
    {
        action = AssertAction::kContinue;
    }
    switch (action)
    {
    case AssertAction::kContinue:
        break;
    case AssertAction::kIgnoreSite:
        ignoreSite = true;
        break;
    case AssertAction::kIgnoreAll:
        state.ignoreAll.store(true, std::memory_order_relaxed);
        break;
    }
}

AssertHandler SetAssertHandler(AssertHandler handler)
{
    AssertState& state = State();
    std::lock_guard lock(state.mutex);
    return std::exchange(state.handler, std::move(handler));
}

void SetIgnoreAllAsserts(bool ignore)
{
    State().ignoreAll.store(ignore, std::memory_order_relaxed);
}

bool GetIgnoreAllAsserts()
{
    return State().ignoreAll.load(std::memory_order_relaxed);
}

void SetLogAssertFailures(bool log)
{
    State().log.store(log, std::memory_order_relaxed);
}

bool GetLogAssertFailures()
{
    return State().log.load(std::memory_order_relaxed);
}

AssertLogSink SetAssertLogSink(AssertLogSink sink)
{
    AssertState& state = State();
    std::lock_guard lock(state.mutex);
    return std::exchange(state.sink, std::move(sink));
}

AssertCapture::AssertCapture()
    : mOuter(nullptr), mPreviousIgnoreAll(GetIgnoreAllAsserts()),
      mPreviousLog(GetLogAssertFailures())
{
    SetIgnoreAllAsserts(false);
    SetLogAssertFailures(false);
    AssertState& state = State();
    std::lock_guard lock(state.mutex);
    mOuter = std::exchange(state.capture, this);
}

AssertCapture::~AssertCapture()
{
    {
        AssertState& state = State();
        std::lock_guard lock(state.mutex);
        // Captures are scoped, so this one is the innermost; should one outlive an inner one
        // anyway, unlink it from wherever it sits.
        if (state.capture == this)
        {
            state.capture = mOuter;
        }
        else
        {
            for (AssertCapture* c = state.capture; c != nullptr; c = c->mOuter)
            {
                if (c->mOuter == this)
                {
                    c->mOuter = mOuter;
                    break;
                }
            }
        }
    }
    SetIgnoreAllAsserts(mPreviousIgnoreAll);
    SetLogAssertFailures(mPreviousLog);
}

void AssertCapture::Record(const char* expression, const char* file, int line)
{
    mEntries.push_back(
        Entry{AssertText(expression), expression ? expression : "", BaseName(file), line});
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
