#include "framework/db/connectionstring.h"

#include "framework/system/strings.h"

namespace framework {

namespace {

struct TPart {
    String Keyword;
    String Value;
};

/// What stands in braces at `at`, which is moved behind them.
String BracedValue(StringView text, std::size_t& at) {
    String value;
    for (++at; at < text.size(); ++at) {
        if (text[at] == u'}' && !(at + 1 < text.size() && text[at + 1] == u'}')) {
            ++at;
            break;
        }
        if (text[at] == u'}')
            ++at;
        value += text[at];
    }
    return value;
}

std::vector<TPart> Parts(StringView text) {
    std::vector<TPart> parts;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t equals = text.find_first_of(u"=;", at);
        if (equals == StringView::npos)
            break;
        TPart part{Trim(text.substr(at, equals - at)), {}};
        at = equals + 1;
        if (text[equals] == u';')
            continue;
        at = std::min(text.find_first_not_of(u' ', at), text.size());
        if (at < text.size() && text[at] == u'{')
            part.Value = BracedValue(text, at);
        const std::size_t end = std::min(text.find(u';', at), text.size());
        part.Value += Trim(text.substr(at, end - at));
        at = end + 1;
        parts.push_back(std::move(part));
    }
    return parts;
}

struct TDefault {
    const char16_t* Driver; ///< occurs in the name of the driver
    const char16_t* Keyword;
    const char16_t* Value;
};

constexpr TDefault defaults[] = {
    {u"SQLITE", u"StepAPI", u"1"},
    {u"SQLITE", u"Timeout", u"5000"},
    {u"POSTGRES", u"UseDeclareFetch", u"1"},
    {u"POSTGRES", u"Fetch", u"1000"},
};

} // namespace

std::optional<String> ConnectionValue(StringView connectionString, StringView keyword) {
    for (TPart& part : Parts(connectionString)) {
        if (SameText(part.Keyword, keyword))
            return std::move(part.Value);
    }
    return std::nullopt;
}

String CompleteConnectionString(StringView connectionString) {
    String result(connectionString);
    const String driver = AnsiUpperCase(ConnectionValue(connectionString, u"DRIVER").value_or(String()));
    for (const TDefault& value : defaults) {
        if (Pos(value.Driver, driver) == 0 || ConnectionValue(connectionString, value.Keyword))
            continue;
        if (!result.ends_with(u';'))
            result += u';';
        result += String(value.Keyword) + u"=" + value.Value;
    }
    return result;
}

String WithoutPasswords(StringView text, StringView connectionString) {
    String result(text);
    for (const TPart& part : Parts(connectionString)) {
        if (SameText(part.Keyword, u"PWD") || SameText(part.Keyword, u"PASSWORD"))
            result = StringReplace(result, part.Value, u"***", TReplaceFlags() << rfReplaceAll);
    }
    return result;
}

} // namespace framework
