// A user-facing message of the host: the host's message number, the values of its message
// record, and a printf-style wide format filled with parameters by AString::Format. Messages
// are queued, so a message owns copies of its parameters.
#pragma once

#include "AString.h"
#include "PlinthExport.h"

#include <vector>

// How bad the reported condition is. The values are the host record's codes, not a ranking.
enum class MessageSeverity : int
{
    kInformation = 0,
    kError = 1,
    kWarning = 2,
    kFatal = 3
};

// The four values the host's message record carries besides the number. A reader that finds a
// project item of the wrong kind posts {kError, 1, 1012, 6}: an error of the project-data
// group, with help topic 1012, from the circuit module.
struct MessageRecord
{
    MessageSeverity mSeverity = MessageSeverity::kError;
    int mCategory = 0;  // the host's group of messages (1: project data), 0 for none
    int mHelpTopic = 0; // the help topic shown with the message, 0 for none
    int mOrigin = 0;    // the host's code of the posting module, 0 for unknown

    friend bool operator==(const MessageRecord&, const MessageRecord&) = default;
};

// One parameter of a message: a copy of a FormatArg (texts, UTF-8 ones included, are copied as
// wide texts; pointers are kept as numbers).
class PLINTH_API MessageParam
{
public:
    MessageParam(const FormatArg& arg);

    FormatArg::Kind GetKind() const { return mKind; }
    // The argument again, for AString::FormatList; refers to this parameter's own text.
    FormatArg ToFormatArg() const;
    // The value as plain text: 42, 2.5, x, the text itself, a pointer as "%p" shows it,
    // "(null)" for a null text.
    AString ToText() const;

private:
    FormatArg::Kind mKind;
    unsigned mBytes;
    long long mSigned = 0;
    unsigned long long mUnsigned = 0;
    double mDouble = 0.0;
    char32_t mChar = 0;
    bool mNullText = false;
    AString mText;
};

class PLINTH_API Message
{
public:
    // A message to be filled from the catalogue (or the readable fallback) when posted.
    explicit Message(int number = 0, MessageRecord record = {});
    // A message with its own format and parameters.
    //   Message(61544, {}, L"Bad item '%s'", "Terminal").GetText() => "Bad item 'Terminal'"
    template <typename... Args>
    Message(int number, MessageRecord record, std::wstring_view format, const Args&... args)
        : Message(number, record)
    {
        mFormat.assign(format);
        AddParams(args...);
    }

    // Appends parameters (copied).
    Message& AddParam(const FormatArg& arg);
    template <typename... Args> Message& AddParams(const Args&... args)
    {
        (AddParam(FormatArg(args)), ...);
        return *this;
    }
    Message& SetFormat(std::wstring_view format);

    int GetNumber() const { return mNumber; }
    const MessageRecord& GetRecord() const { return mRecord; }
    MessageSeverity GetSeverity() const { return mRecord.mSeverity; }
    // The message's own format; empty when the text comes from the catalogue.
    const AString& GetFormat() const { return mFormat; }
    const std::vector<MessageParam>& GetParams() const { return mParams; }

    // The text: fixed when the message was posted; before that the own format filled, or the
    // fallback "Message <number>" followed by ": " and the parameters joined by ", ".
    //   Message(61544).AddParams("Terminal", 3).GetText() => "Message 61544: Terminal, 3"
    AString GetText() const;
    // `format` filled with the parameters (a missing parameter prints nothing).
    AString Fill(std::wstring_view format) const;
    // Fixes the text: the own format if there is one, else `catalogueFormat` when not null,
    // else the fallback.
    void ResolveText(const AString* catalogueFormat);
    bool IsTextResolved() const { return mResolved; }

private:
    AString Fallback() const;

    int mNumber;
    MessageRecord mRecord;
    AString mFormat;
    std::vector<MessageParam> mParams;
    AString mText;
    bool mResolved = false;
};
