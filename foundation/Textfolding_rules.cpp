#include "foundation/Textfolding_rules.h"

#include "framework/system/casemapping.h"

namespace ZOR {

namespace {

struct TReplacement {
    char16_t From;
    StringView To;
};

// In the order in which they apply. No replacement makes a letter that a later one replaces, so that a letter can be
// looked up by itself; of two with the same letter the first counts.
constexpr TReplacement kAccents[] = {
    {u'ź', u"z"}, {u'ż', u"z"}, {u'ą', u"a"}, {u'ę', u"e"}, {u'ń', u"n"}, {u'ć', u"c"},  {u'ó', u"o"}, {u'ł', u"l"},
    {u'ś', u"s"}, {u'Ź', u"Z"}, {u'Ż', u"Z"}, {u'Ą', u"A"}, {u'Ę', u"E"}, {u'Ń', u"N"},  {u'Ł', u"L"}, {u'Ć', u"C"},
    {u'Ś', u"S"}, {u'Ó', u"O"}, {u'?', u"a"}, {u'á', u"a"}, {u'â', u"a"}, {u'ă', u"a"},  {u'ä', u"a"}, {u'é', u"e"},
    {u'ë', u"e"}, {u'ď', u"d"}, {u'î', u"i"}, {u'í', u"i"}, {u'ĺ', u"l"}, {u'ľ', u"l"},  {u'ç', u"c"}, {u'č', u"c"},
    {u'ü', u"u"}, {u'ú', u"u"}, {u'ů', u"u"}, {u'ô', u"o"}, {u'ö', u"o"}, {u'ř', u"r"},  {u'ŕ', u"r"}, {u'ť', u"t"},
    {u'ň', u"n"}, {u'ý', u"y"}, {u'ž', u"z"}, {u'Ä', u"A"}, {u'Â', u"A"}, {u'Á', u"A"},  {u'É', u"E"}, {u'Ë', u"E"},
    {u'Ç', u"C"}, {u'Č', u"C"}, {u'Ď', u"D"}, {u'Î', u"I"}, {u'Í', u"I"}, {u'ß', u"SS"}, {u'Ĺ', u"L"}, {u'Ľ', u"L"},
    {u'Ň', u"N"}, {u'Ö', u"O"}, {u'Ô', u"O"}, {u'Ó', u"O"}, {u'Ř', u"R"}, {u'Ŕ', u"R"},  {u'Š', u"S"}, {u'Ť', u"T"},
    {u'Ý', u"Y"}, {u'Ü', u"U"}, {u'Ú', u"U"}, {u'Ů', u"U"}, {u'Ž', u"Z"},
};

/// The plain letters of U+00C0 to U+017F; a blank where a letter is none with an accent.
constexpr StringView kPlainLetters = u"AAAAAA CEEEEIIIIDNOOOOO OUUUUY  aaaaaa ceeeeiiiidnooooo ouuuuy y"
                                     u"AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIi  JjKk LlLlLlLlLlNnNnNn   "
                                     u"OoOoOo  RrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZz ";
constexpr char16_t kFirstPlain = 0x00C0;
static_assert(kPlainLetters.size() == 0x180 - kFirstPlain);

char16_t PlainLetter(char16_t unit) {
    if (unit < kFirstPlain || unit - kFirstPlain >= static_cast<int>(kPlainLetters.size()))
        return unit;
    const char16_t plain = kPlainLetters[static_cast<std::size_t>(unit - kFirstPlain)];
    return plain == u' ' ? unit : plain;
}

char16_t FoldUmlaut(char16_t unit) {
    switch (unit) {
    case u'ä':
        return u'a';
    case u'ö':
        return u'o';
    case u'ü':
        return u'u';
    default:
        return unit;
    }
}

/// The replacement of a letter that stands in the table; otherwise empty.
StringView ListedReplacement(char16_t unit) {
    for (const TReplacement& each : kAccents) {
        if (each.From == unit)
            return each.To;
    }
    return {};
}

} // namespace

TTextFolder::TTextFolder(const TTextFolding& folding) : FFolding(folding) {
    for (std::size_t i = 0; i < FUnits.size(); ++i)
        FUnits[i] = Compute(static_cast<char16_t>(i));
}

char16_t TTextFolder::FoldCase(char16_t unit) const {
    switch (FFolding.Case) {
    case TFoldedCase::Lower:
        return ToLowerCase(unit);
    case TFoldedCase::Upper:
        return ToUpperCase(unit);
    case TFoldedCase::AsItIs:
        break;
    }
    return unit;
}

TTextFolder::TUnits TTextFolder::Compute(char16_t unit) const {
    if (FFolding.Case == TFoldedCase::Lower)
        unit = ToLowerCase(unit);
    if (FFolding.Umlauts)
        unit = FoldUmlaut(unit);
    TUnits units{unit, 0};
    if (const StringView listed = FFolding.ListedAccents ? ListedReplacement(unit) : StringView(); !listed.empty())
        units = {listed[0], listed.size() > 1 ? listed[1] : u'\0'};
    if (FFolding.AllAccents && !units.Second)
        units.First = PlainLetter(units.First);
    return {FoldCase(units.First), units.Second ? FoldCase(units.Second) : u'\0'};
}

String TTextFolder::Fold(StringView text) const {
    String folded;
    folded.reserve(text.size());
    for (const char16_t unit : text)
        FoldUnit(unit, [&folded](char16_t each) { folded += each; });
    return folded;
}

String FoldAccents(StringView text) {
    static const TTextFolder folder({.ListedAccents = true});
    return folder.Fold(text);
}

} // namespace ZOR
