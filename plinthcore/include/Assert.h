// The framework's assertion facility. PLINTH_ASSERT(expr) reports a failed invariant with the
// expression text, source file and line through ProcessAssertFailure and then execution
// continues: the caller goes on with its documented fallback. A message-style assertion is
// the negated string literal, PLINTH_ASSERT(!"Need a manager"), whose text is the message.
// The macro is an expression: it yields whether `expr` held.
#pragma once

#include "PlinthExport.h"

#include <functional>
#include <string>
#include <vector>

// What a failed assertion reports.
struct AssertInfo
{
    const char* expression; // as written, e.g. "comp && term" or "!\"Need a manager\""
    const char* file;
    int line;
};

// What the handler wants done after a failure; execution continues in every case.
enum class AssertAction
{
    kContinue,   // report this site again next time
    kIgnoreSite, // stop reporting this one site
    kIgnoreAll   // stop reporting every site (SetIgnoreAllAsserts(true))
};

using AssertHandler = std::function<AssertAction(const AssertInfo&)>;

// Reports one failure: logs it when logging is on, then, unless every assertion or this site
// is ignored, asks the handler and applies its answer to `ignoreSite`.
PLINTH_API void ProcessAssertFailure(const char* expression, const char* file, int line,
                                     bool& ignoreSite);
// Writes one failure to the assertion log ("file:line: assertion failed: text").
PLINTH_API void LogAssertFailure(const char* expression, const char* file, int line);

// Installs `handler` (an empty one restores the default, which does nothing and continues);
// returns the previous handler.
PLINTH_API AssertHandler SetAssertHandler(AssertHandler handler);
// Process-wide "ignore all": no handler is asked while it is set.
PLINTH_API void SetIgnoreAllAsserts(bool ignore);
PLINTH_API bool GetIgnoreAllAsserts();
// Logging of failed assertions (on by default, to standard error).
PLINTH_API void SetLogAssertFailures(bool log);
PLINTH_API bool GetLogAssertFailures();
// Where the log goes; an empty sink restores standard error. Returns the previous sink.
using AssertLogSink = std::function<void(const std::string& line)>;
PLINTH_API AssertLogSink SetAssertLogSink(AssertLogSink sink);

// The text of an assertion: the message of a message-style assertion (!"text" => text),
// otherwise the expression as written.
PLINTH_API std::string AssertText(const char* expression);

// Records every assertion failure while it lives (tests use it to check that a call raised
// exactly the expected texts). Turns off "ignore all" and logging for its lifetime and puts
// back the previous handler and settings afterwards. Captures nest.
class PLINTH_API AssertCapture
{
public:
    struct Entry
    {
        std::string text;       // AssertText of the expression
        std::string expression; // as written
        std::string file;
        int line;
    };

    AssertCapture();
    ~AssertCapture();
    AssertCapture(const AssertCapture&) = delete;
    AssertCapture& operator=(const AssertCapture&) = delete;

    const std::vector<Entry>& Entries() const { return mEntries; }
    // The texts in the order raised.
    std::vector<std::string> Texts() const;
    std::size_t Count() const { return mEntries.size(); }
    void Clear() { mEntries.clear(); }

private:
    std::vector<Entry> mEntries;
    AssertHandler mPreviousHandler;
    bool mPreviousIgnoreAll;
    bool mPreviousLog;
};

#define PLINTH_ASSERT(...)                                                                         \
    (static_cast<bool>(__VA_ARGS__) || [](const char* plinthFile, int plinthLine) {                \
        static bool plinthIgnoreSite = false;                                                      \
        ::ProcessAssertFailure(#__VA_ARGS__, plinthFile, plinthLine, plinthIgnoreSite);            \
        return false;                                                                              \
    }(__FILE__, __LINE__))
