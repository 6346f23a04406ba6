#include "framework/db/sqlaliases.h"

#include "framework/system/strings.h"

#include <algorithm>

namespace framework {

namespace {

/// Behind these something begins; behind all other words and signs of their kind a name is an alias.
constexpr StringView openers[] = {
    u"SELECT", u"DISTINCT",  u"ALL",     u"FROM",   u"WHERE",   u"AND",   u"OR",     u"NOT",    u"ON",
    u"BY",     u"HAVING",    u"JOIN",    u"CASE",   u"WHEN",    u"THEN",  u"ELSE",   u"IN",     u"IS",
    u"LIKE",   u"GLOB",      u"MATCH",   u"REGEXP", u"USING",   u"LIMIT", u"UNION",  u"EXCEPT", u"OFFSET",
    u"WITH",   u"INTERSECT", u"BETWEEN", u"ESCAPE", u"COLLATE", u"CAST",  u"EXISTS",
};

enum class TToken { End, Name, Value, Sign };

/// Cuts a statement into words and signs.
class TScanner {
public:
    explicit TScanner(StringView sql) : FSql(sql) {}

    /// The next token; `text` is a name in upper case and without its quotes, or a sign.
    TToken Next(String& text) {
        SkipBlanks();
        if (FAt == FSql.size())
            return TToken::End;
        const char16_t first = FSql[FAt];
        if (first == u'\'') {
            Quoted(u'\'');
            return TToken::Value;
        }
        if (first == u'"' || first == u'`' || first == u'[') {
            text = AnsiUpperCase(Quoted(first == u'[' ? u']' : first));
            return TToken::Name;
        }
        const std::size_t start = FAt;
        while (FAt < FSql.size() && IsWordUnit(FSql[FAt]))
            ++FAt;
        if (FAt == start) {
            text = FSql[FAt++];
            return TToken::Sign;
        }
        text = AnsiUpperCase(FSql.substr(start, FAt - start));
        return first >= u'0' && first <= u'9' ? TToken::Value : TToken::Name;
    }

private:
    static bool IsWordUnit(char16_t unit) {
        return unit == u'_' || unit == u'$' || unit >= 0x80 || (unit >= u'0' && unit <= u'9') ||
               (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
    }

    void SkipBlanks() {
        for (;;) {
            while (FAt < FSql.size() && FSql[FAt] <= u' ')
                ++FAt;
            const StringView rest = FSql.substr(FAt);
            if (rest.starts_with(u"--"))
                FAt = std::min(FSql.find(u'\n', FAt), FSql.size());
            else if (rest.starts_with(u"/*"))
                FAt = std::min(FSql.find(u"*/", FAt + 2), FSql.size() - 2) + 2;
            else
                return;
        }
    }

    String Quoted(char16_t close) {
        String text;
        for (++FAt; FAt < FSql.size(); ++FAt) {
            if (FSql[FAt] == close) {
                ++FAt;
                if (FAt == FSql.size() || FSql[FAt] != close)
                    break;
            }
            text += FSql[FAt];
        }
        return text;
    }

    StringView FSql;
    std::size_t FAt = 0;
};

} // namespace

std::set<String> AliasesIn(StringView sql) {
    std::set<String> aliases;
    TScanner scanner(sql);
    String text;
    bool afterExpression = false;
    for (TToken token = scanner.Next(text); token != TToken::End; token = scanner.Next(text)) {
        const bool opens =
            token == TToken::Name && std::find(std::begin(openers), std::end(openers), text) != std::end(openers);
        // AS itself keeps what was before it.
        if (token == TToken::Name && text == u"AS") {
            afterExpression = true;
            continue;
        }
        if (token == TToken::Name && !opens && afterExpression)
            aliases.insert(text);
        afterExpression = token == TToken::Sign ? text == u")" || text == u"?" : !opens;
    }
    return aliases;
}

} // namespace framework
