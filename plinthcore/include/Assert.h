// The framework's assertion facility. PLINTH_ASSERT(expr) reports a failed invariant with the
// expression text, source file and line through ProcessAssertFailure and then execution
// continues: the caller goes on with its documented fallback. A message-style assertion is
// the negated string literal, PLINTH_ASSERT(!"Need a manager"), whose text is the message.
// The macro is an expression: it yields whether `expr` held, which it evaluates exactly once.
// Each use has its own "ignore this site" flag.
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

// What the handler wants done after a failure; execution continues in every case. Ignoring
// only stops asking the handler: failures are still logged while logging is on.
enum class AssertAction
{
    kContinue,   // ask again the next time this site fails
    kIgnoreSite, // never ask again for this one site
    kIgnoreAll   // never ask again for any site (SetIgnoreAllAsserts(true))
};

using AssertHandler = std::function<AssertAction(const AssertInfo&)>;

// Reports one failure: logs it when logging is on; then, while an AssertCapture lives, records
// it there; otherwise, unless every assertion or this site is ignored, asks the handler and
// applies its answer to `ignoreSite`. Never throws: a throwing handler counts as kContinue.
// A failure raised while the handler or the log sink runs does not reach them again: it is
// written to standard error instead.
PLINTH_API void ProcessAssertFailure(const char* expression, const char* file, int line,
                                     bool& ignoreSite) noexcept;
// Writes one failure to the assertion log ("file:line: assertion failed: text").
PLINTH_API void LogAssertFailure(const char* expression, const char* file, int line) noexcept;

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

// The text of an assertion: the message of a message-style assertion, with the escapes of the
// literal undone, otherwise the expression as written.
//   "!\"Need a manager\""   => Need a manager
//   "! \"a\" \"b\""       => ab (adjacent literals join)
//   "!\"a\" || x"          => !"a" || x (not a lone literal)
//   "comp && term"         => comp && term
PLINTH_API std::string AssertText(const char* expression);

// Records every assertion failure while it lives (tests use it to check that a call raised
// exactly the expected texts), whatever the handler, "ignore all" and per-site settings say;
// the handler is not asked meanwhile. Turns off "ignore all" and logging for its lifetime and
// puts back the previous settings afterwards. Captures nest: only the innermost one records,
// and the outer one goes on recording once the inner one is gone.
class PLINTH_API AssertCapture
{
public:
    struct Entry
    {
        std::string text;       // AssertText of the expression
        std::string expression; // as written
        std::string file;       // file name without its directory
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
    friend void ProcessAssertFailure(const char*, const char*, int, bool&) noexcept;
    void Record(const char* expression, const char* file, int line);

    std::vector<Entry> mEntries;
    AssertCapture* mOuter;
    bool mPreviousIgnoreAll;
    bool mPreviousLog;
};

#define PLINTH_ASSERT(...)                                                                         \
    (static_cast<bool>(__VA_ARGS__) ||                                                             \
     [](const char* plinthFile, int plinthLine)                                                    \
     {                                                                                             \
         static bool plinthIgnoreSite = false;                                                     \
         ::ProcessAssertFailure(#__VA_ARGS__, plinthFile, plinthLine, plinthIgnoreSite);           \
         return false;                                                                             \
     }(__FILE__, __LINE__))
