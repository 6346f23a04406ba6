#include "framework/db/sqlaliases.h"

#include "framework/system/strings.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace framework {

namespace {

/// Behind these something begins; behind all other words and signs of their kind a name is an alias.
constexpr StringView openers[] = {
    u"SELECT", u"DISTINCT",  u"ALL",     u"FROM",   u"WHERE",   u"AND",   u"OR",     u"NOT",    u"ON",
    u"BY",     u"HAVING",    u"JOIN",    u"CASE",   u"WHEN",    u"THEN",  u"ELSE",   u"IN",     u"IS",
    u"LIKE",   u"GLOB",      u"MATCH",   u"REGEXP", u"USING",   u"LIMIT", u"UNION",  u"EXCEPT", u"OFFSET",
    u"WITH",   u"INTERSECT", u"BETWEEN", u"ESCAPE", u"COLLATE", u"CAST",  u"EXISTS",
};

enum class TToken { End, Word, QuotedName, Value, Sign };

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
            return TToken::QuotedName;
        }
        const std::size_t start = FAt;
        while (FAt < FSql.size() && IsWordUnit(FSql[FAt]))
            ++FAt;
        if (FAt == start) {
            text = FSql[FAt++];
            return TToken::Sign;
        }
        text = AnsiUpperCase(FSql.substr(start, FAt - start));
        return first >= u'0' && first <= u'9' ? TToken::Value : TToken::Word;
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

template <std::size_t count>
bool IsOneOf(StringView word, const StringView (&words)[count]) {
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

constexpr StringView combiners[] = {u"UNION", u"EXCEPT", u"INTERSECT"};
/// Behind these no tables follow on the same level.
constexpr StringView endsOfTables[] = {u"WHERE", u"GROUP", u"HAVING", u"WINDOW", u"ORDER", u"LIMIT", u"OFFSET"};

/// Follows a query from clause to clause, on each level of its parentheses.
class TTableFinder {
public:
    explicit TTableFinder(StringView sql) : FScanner(sql) {}

    TQueryTables Find() {
        String text;
        for (TToken token = FScanner.Next(text); token != TToken::End; token = FScanner.Next(text)) {
            if (token == TToken::Sign)
                TakeSign(text);
            else if (token == TToken::Word)
                TakeWord(text);
            else if (token == TToken::QuotedName)
                TakeName(text);
        }
        EndName();
        return std::move(FTables);
    }

private:
    enum class TClause { Columns, Tables, Join, Rest, Unseen };

    TClause& Clause() { return FLevels.back(); }

    void TakeSign(StringView sign) {
        if (sign == u".") {
            // What stood before was a schema.
            FExpectsName = FExpectsName || !FName.empty();
            FName.clear();
            return;
        }
        EndName();
        if (sign == u"(") {
            const bool seen = Clause() == TClause::Columns || Clause() == TClause::Tables;
            FLevels.push_back(seen ? Clause() : TClause::Unseen);
        } else if (sign == u")" && FLevels.size() > 1) {
            FLevels.pop_back();
        } else if (sign == u"," && Clause() == TClause::Join) {
            Clause() = TClause::Tables;
        }
        FExpectsName = Clause() == TClause::Tables && (sign == u"(" || sign == u",");
    }

    void TakeWord(StringView word) {
        if (Clause() == TClause::Unseen)
            return;
        const TClause clause = Clause();
        if (word == u"WITH" && FLevels.size() == 1 && clause == TClause::Columns)
            FTables.With = true;
        else if (IsOneOf(word, combiners))
            FTables.Combined = true;

        if (word == u"SELECT")
            Clause() = TClause::Columns;
        else if (word == u"FROM" || word == u"JOIN")
            Clause() = TClause::Tables;
        else if (IsOneOf(word, endsOfTables))
            Clause() = TClause::Rest;
        else if ((word == u"ON" || word == u"USING") && clause == TClause::Tables)
            Clause() = TClause::Join;
        else if (word == u"ONLY" || word == u"LATERAL")
            return;
        else
            return TakeName(word);
        EndName();
        FExpectsName = Clause() == TClause::Tables;
    }

    void TakeName(StringView name) {
        EndName();
        if (std::exchange(FExpectsName, false))
            FName = name;
    }

    /// A name is that of a table when no point has followed.
    void EndName() {
        if (!FName.empty())
            ++FTables.Counts[std::exchange(FName, {})];
    }

    TScanner FScanner;
    TQueryTables FTables;
    std::vector<TClause> FLevels{TClause::Columns};
    String FName;
    bool FExpectsName = false;
};

} // namespace

TQueryTables TablesIn(StringView sql) {
    return TTableFinder(sql).Find();
}

std::set<String> AliasesIn(StringView sql) {
    std::set<String> aliases;
    TScanner scanner(sql);
    String text;
    bool afterExpression = false;
    for (TToken token = scanner.Next(text); token != TToken::End; token = scanner.Next(text)) {
        const bool opens = token == TToken::Word && IsOneOf(text, openers);
        // AS itself keeps what was before it.
        if (token == TToken::Word && text == u"AS") {
            afterExpression = true;
            continue;
        }
        if ((token == TToken::Word || token == TToken::QuotedName) && !opens && afterExpression)
            aliases.insert(text);
        afterExpression = token == TToken::Sign ? text == u")" || text == u"?" : !opens;
    }
    return aliases;
}

} // namespace framework
