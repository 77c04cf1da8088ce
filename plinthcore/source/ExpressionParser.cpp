#include "ExpressionParser.h"

#include "ExpressionFunction.h"
#include "Units.h"

#include <unicode/uchar.h>
#include <utility>

namespace
{
enum class TokenKind
{
    kEnd,
    kNumber,
    kName,     // a name, possibly with "$" in front
    kInstance, // name "." name
    kOperator, // + - * / ^ (and ** as ^)
    kOpen,
    kClose,
    kComma
};

struct Token
{
    TokenKind kind = TokenKind::kEnd;
    std::size_t position = 0;
    std::size_t length = 0;
    wchar_t op = 0;
    double number = 0.0;
    Units::FullUnitType unit = Units::kNoUnit;
    AString text;      // as written; the instance name of an instance reference
    AString parameter; // the parameter of an instance reference
};

bool IsBlank(wchar_t c)
{
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}

bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

bool IsLetter(wchar_t c)
{
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') ||
           (c >= 0x80 && u_isalpha(static_cast<UChar32>(c)) != 0);
}

bool IsNameStart(wchar_t c)
{
    return IsLetter(c) || c == L'_';
}

bool IsNamePart(wchar_t c)
{
    return IsNameStart(c) || IsDigit(c);
}

// Characters of a scale or unit written right after a number: letters and the unit signs.
bool IsSuffixPart(wchar_t c)
{
    return IsLetter(c) || c == L'%' || c == L'\u00B0' || c == L'\u00B5' || c == L'\u03BC' ||
           c == L'\u03A9' || c == L'\u2126';
}

class Lexer
{
public:
    explicit Lexer(std::wstring_view text) : mText(text) {}

    // Reads the next token into `token`; false with `error` set when the text holds no token
    // at this place.
    bool Next(Token& token, ValueError& error)
    {
        while (mPos < mText.size() && IsBlank(mText[mPos]))
        {
            ++mPos;
        }
        token = Token{};
        token.position = mPos;
        if (mPos >= mText.size())
        {
            token.kind = TokenKind::kEnd;
            return true;
        }
        const wchar_t c = mText[mPos];
        if (IsDigit(c) || (c == L'.' && mPos + 1 < mText.size() && IsDigit(mText[mPos + 1])))
        {
            return ReadNumber(token, error);
        }
        if (IsNameStart(c) || c == L'$')
        {
            return ReadName(token, error);
        }
        token.length = 1;
        switch (c)
        {
        case L'+':
        case L'-':
        case L'/':
        case L'^':
            token.kind = TokenKind::kOperator;
            token.op = c;
            break;
        case L'*':
            token.kind = TokenKind::kOperator;
            token.op = L'*';
            if (mPos + 1 < mText.size() && mText[mPos + 1] == L'*')
            {
                token.op = L'^';
                token.length = 2;
            }
            break;
        case L'(':
            token.kind = TokenKind::kOpen;
            break;
        case L')':
            token.kind = TokenKind::kClose;
            break;
        case L',':
            token.kind = TokenKind::kComma;
            break;
        case L'"':
            error = ValueError(ValueError::kMisplacedString, mPos);
            return false;
        default:
            error = ValueError(ValueError::kUnexpectedCharacter, mPos, AString(1, c));
            return false;
        }
        token.text.assign(mText.substr(mPos, token.length));
        mPos += token.length;
        return true;
    }

    std::size_t GetPosition() const { return mPos; }

private:
    bool ReadNumber(Token& token, ValueError& error)
    {
        std::size_t i = mPos;
        while (i < mText.size() && IsDigit(mText[i]))
        {
            ++i;
        }
        if (i < mText.size() && mText[i] == L'.')
        {
            ++i;
            while (i < mText.size() && IsDigit(mText[i]))
            {
                ++i;
            }
        }
        // An exponent only when digits follow: in "2e" the letter is a (bad) suffix.
        if (i < mText.size() && (mText[i] == L'e' || mText[i] == L'E'))
        {
            std::size_t j = i + 1;
            if (j < mText.size() && (mText[j] == L'+' || mText[j] == L'-'))
            {
                ++j;
            }
            if (j < mText.size() && IsDigit(mText[j]))
            {
                while (j < mText.size() && IsDigit(mText[j]))
                {
                    ++j;
                }
                i = j;
            }
        }
        const std::size_t suffixStart = i;
        while (i < mText.size() && IsSuffixPart(mText[i]))
        {
            ++i;
        }
        const std::wstring_view suffix = mText.substr(suffixStart, i - suffixStart);
        Units::Suffix split;
        if (!Units::SplitUnitSuffix(suffix, split))
        {
            error = ValueError(ValueError::kBadSuffix, suffixStart, AString(suffix));
            return false;
        }
        token.kind = TokenKind::kNumber;
        token.length = i - mPos;
        token.text.assign(mText.substr(mPos, token.length));
        if (!Units::TextToFloat(token.text, token.number, token.unit))
        {
            error = ValueError(ValueError::kNumberTooLarge, mPos, token.text);
            return false;
        }
        mPos = i;
        return true;
    }

    bool ReadName(Token& token, ValueError& error)
    {
        std::size_t i = mPos;
        if (mText[i] == L'$')
        {
            ++i;
            if (i >= mText.size() || !IsNameStart(mText[i]))
            {
                error = ValueError(ValueError::kUnexpectedCharacter, mPos, AString(L"$"));
                return false;
            }
        }
        while (i < mText.size() && IsNamePart(mText[i]))
        {
            ++i;
        }
        token.kind = TokenKind::kName;
        token.text.assign(mText.substr(mPos, i - mPos));
        // instance "." parameter, written without blanks
        if (mText[mPos] != L'$' && i + 1 < mText.size() && mText[i] == L'.' &&
            IsNameStart(mText[i + 1]))
        {
            std::size_t j = i + 1;
            while (j < mText.size() && IsNamePart(mText[j]))
            {
                ++j;
            }
            token.kind = TokenKind::kInstance;
            token.parameter.assign(mText.substr(i + 1, j - i - 1));
            i = j;
        }
        token.length = i - mPos;
        mPos = i;
        return true;
    }

    std::wstring_view mText;
    std::size_t mPos = 0;
};

using NodePtr = std::unique_ptr<ExpressionNode>;
using Kind = ExpressionNode::Kind;

class Parser
{
public:
    Parser(std::wstring_view text, ValueError& error)
        : mLexer(text), mError(error), mEnd(text.size())
    {
    }

    NodePtr ParseAll()
    {
        if (!Advance())
        {
            return nullptr;
        }
        NodePtr root = ParseSum();
        if (root == nullptr)
        {
            return nullptr;
        }
        if (mToken.kind == TokenKind::kClose)
        {
            return Fail(ValueError::kUnmatchedCloseParen, mToken.position);
        }
        if (mToken.kind != TokenKind::kEnd)
        {
            return Fail(ValueError::kOperatorExpected, mToken.position, mToken.text);
        }
        return root;
    }

private:
    bool Advance() { return mLexer.Next(mToken, mError); }

    NodePtr Fail(ValueError::Kind kind, std::size_t position, AString subject = AString())
    {
        mError = ValueError(kind, position, std::move(subject));
        return nullptr;
    }

    // Counts one level of nesting for its lifetime.
    struct Level
    {
        explicit Level(std::size_t& depth) : mDepth(depth) { ++mDepth; }
        ~Level() { --mDepth; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;
        std::size_t& mDepth;
    };

    bool IsOperator(std::initializer_list<wchar_t> ops) const
    {
        if (mToken.kind != TokenKind::kOperator)
        {
            return false;
        }
        for (wchar_t op : ops)
        {
            if (mToken.op == op)
            {
                return true;
            }
        }
        return false;
    }

    // sum := product (("+" | "-") product)*
    NodePtr ParseSum() { return ParseChain({L'+', L'-'}, true); }
    // product := signed (("*" | "/") signed)*
    NodePtr ParseProduct() { return ParseChain({L'*', L'/'}, false); }

    NodePtr ParseChain(std::initializer_list<wchar_t> ops, bool sum)
    {
        NodePtr first = sum ? ParseProduct() : ParseSigned();
        if (first == nullptr || !IsOperator(ops))
        {
            return first;
        }
        auto chain = std::make_unique<ExpressionNode>(Kind::kChain, first->GetPosition());
        chain->mChildren.push_back(std::move(first));
        while (IsOperator(ops))
        {
            chain->mOperators.push_back(mToken.op);
            if (!Advance())
            {
                return nullptr;
            }
            NodePtr next = sum ? ParseProduct() : ParseSigned();
            if (next == nullptr)
            {
                return nullptr;
            }
            chain->mChildren.push_back(std::move(next));
        }
        return chain;
    }

    // signed := ("-" | "+") signed | power
    NodePtr ParseSigned()
    {
        if (!IsOperator({L'-', L'+'}))
        {
            return ParsePower();
        }
        Level level(mDepth);
        if (mDepth > ExpressionParser::kMaxNesting)
        {
            return Fail(ValueError::kNestedTooDeep, mToken.position);
        }
        auto sign = std::make_unique<ExpressionNode>(Kind::kSign, mToken.position);
        sign->mSign = mToken.op;
        if (!Advance())
        {
            return nullptr;
        }
        NodePtr operand = ParseSigned();
        if (operand == nullptr)
        {
            return nullptr;
        }
        sign->mChildren.push_back(std::move(operand));
        return sign;
    }

    // power := primary ("^" signed)?
    NodePtr ParsePower()
    {
        NodePtr base = ParsePrimary();
        if (base == nullptr || !IsOperator({L'^'}))
        {
            return base;
        }
        Level level(mDepth);
        if (mDepth > ExpressionParser::kMaxNesting)
        {
            return Fail(ValueError::kNestedTooDeep, mToken.position);
        }
        auto power = std::make_unique<ExpressionNode>(Kind::kPower, mToken.position);
        if (!Advance())
        {
            return nullptr;
        }
        NodePtr exponent = ParseSigned();
        if (exponent == nullptr)
        {
            return nullptr;
        }
        power->mChildren.push_back(std::move(base));
        power->mChildren.push_back(std::move(exponent));
        return power;
    }

    NodePtr ParsePrimary()
    {
        switch (mToken.kind)
        {
        case TokenKind::kEnd:
            return Fail(ValueError::kUnexpectedEnd, mEnd);
        case TokenKind::kNumber:
        {
            auto number = std::make_unique<ExpressionNode>(Kind::kNumber, mToken.position);
            number->mNumber = mToken.number;
            number->mUnit = mToken.unit;
            number->mText = std::move(mToken.text);
            return Advance() ? std::move(number) : nullptr;
        }
        case TokenKind::kInstance:
        {
            auto instance = std::make_unique<ExpressionNode>(Kind::kInstance, mToken.position);
            instance->mText = std::move(mToken.text);
            instance->mParameter = std::move(mToken.parameter);
            return Advance() ? std::move(instance) : nullptr;
        }
        case TokenKind::kName:
            return ParseNameOrCall();
        case TokenKind::kOpen:
        {
            Level level(mDepth);
            if (mDepth > ExpressionParser::kMaxNesting)
            {
                return Fail(ValueError::kNestedTooDeep, mToken.position);
            }
            auto group = std::make_unique<ExpressionNode>(Kind::kGroup, mToken.position);
            if (!Advance())
            {
                return nullptr;
            }
            NodePtr inner = ParseSum();
            if (inner == nullptr)
            {
                return nullptr;
            }
            if (mToken.kind != TokenKind::kClose)
            {
                return FailClose();
            }
            group->mChildren.push_back(std::move(inner));
            return Advance() ? std::move(group) : nullptr;
        }
        default:
            return Fail(ValueError::kOperandExpected, mToken.position, mToken.text);
        }
    }

    // Where a ")" was needed: two operands in a row say that an operator is missing.
    NodePtr FailClose()
    {
        if (mToken.kind == TokenKind::kEnd || mToken.kind == TokenKind::kComma)
        {
            return Fail(ValueError::kMissingCloseParen, mToken.position);
        }
        return Fail(ValueError::kOperatorExpected, mToken.position, mToken.text);
    }

    NodePtr ParseNameOrCall()
    {
        Token name = std::move(mToken);
        if (!Advance())
        {
            return nullptr;
        }
        if (mToken.kind != TokenKind::kOpen || name.text.front() == L'$')
        {
            auto node = std::make_unique<ExpressionNode>(Kind::kName, name.position);
            node->mText = std::move(name.text);
            return node;
        }
        const ExpressionFunction* function = ExpressionFunctions::Find(name.text);
        if (function == nullptr)
        {
            return Fail(ValueError::kUnknownFunction, name.position, name.text);
        }
        Level level(mDepth);
        if (mDepth > ExpressionParser::kMaxNesting)
        {
            return Fail(ValueError::kNestedTooDeep, mToken.position);
        }
        auto call = std::make_unique<ExpressionNode>(Kind::kCall, name.position);
        call->mText = std::move(name.text);
        call->mFunction = function;
        if (!Advance())
        {
            return nullptr;
        }
        if (mToken.kind != TokenKind::kClose)
        {
            while (true)
            {
                NodePtr argument = ParseSum();
                if (argument == nullptr)
                {
                    return nullptr;
                }
                call->mChildren.push_back(std::move(argument));
                if (mToken.kind != TokenKind::kComma)
                {
                    break;
                }
                if (!Advance())
                {
                    return nullptr;
                }
            }
            if (mToken.kind != TokenKind::kClose)
            {
                return FailClose();
            }
        }
        if (!ExpressionFunctions::AcceptsArgumentCount(*function,
                                                       static_cast<int>(call->mChildren.size())))
        {
            return Fail(ValueError::kArgumentCount, call->GetPosition(), AString(function->name));
        }
        return Advance() ? std::move(call) : nullptr;
    }

    Lexer mLexer;
    ValueError& mError;
    std::size_t mEnd;
    Token mToken;
    std::size_t mDepth = 0;
};
} // namespace

std::unique_ptr<ExpressionNode> ExpressionParser::Parse(std::wstring_view text, ValueError& error)
{
    error = ValueError();
    try
    {
        Parser parser(text, error);
        NodePtr root = parser.ParseAll();
        if (root == nullptr && !error.IsError())
        {
            error = ValueError(ValueError::kUnexpectedEnd, text.size());
        }
        return root;
    }
    catch (...)
    {
        // Out of memory on a huge text: report it as a text that cannot be read.
        error = ValueError(ValueError::kNestedTooDeep, 0);
        return nullptr;
    }
}
