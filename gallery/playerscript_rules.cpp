#include "gallery/playerscript_rules.h"

#include "framework/system/numbers.h"
#include "framework/system/strings.h"

namespace gallery {

namespace {

struct TKeyName {
    const char16_t* Name;
    std::uint16_t Key;
};

// The platform's virtual key numbers.
constexpr TKeyName kKeyNames[] = {
    {u"Backspace", 0x08}, {u"Tab", 0x09},       {u"Enter", 0x0D},       {u"Shift", 0x10},     {u"Ctrl", 0x11},
    {u"Alt", 0x12},       {u"Pause", 0x13},     {u"Esc", 0x1B},         {u"Space", 0x20},     {u"PageUp", 0x21},
    {u"PageDown", 0x22},  {u"End", 0x23},       {u"Home", 0x24},        {u"Left", 0x25},      {u"Up", 0x26},
    {u"Right", 0x27},     {u"Down", 0x28},      {u"Ins", 0x2D},         {u"Del", 0x2E},       {u"Menu", 0x5D},
    {u"Multiply", 0x6A},  {u"Add", 0x6B},       {u"Subtract", 0x6D},    {u"Decimal", 0x6E},   {u"Divide", 0x6F},
    {u"Semicolon", 0xBA}, {u"Equal", 0xBB},     {u"Comma", 0xBC},       {u"Minus", 0xBD},     {u"Period", 0xBE},
    {u"Slash", 0xBF},     {u"Backquote", 0xC0}, {u"OpenBracket", 0xDB}, {u"Backslash", 0xDC}, {u"CloseBracket", 0xDD},
    {u"Quote", 0xDE},     {u"Packet", 0xE7},
};
constexpr std::uint16_t kF1 = 0x70;
constexpr int kFunctionKeys = 24;

bool IsModifier(std::uint16_t key) {
    return key >= 0x10 && key <= 0x12;
}

std::optional<std::uint16_t> FindKey(StringView name) {
    for (const TKeyName& each : kKeyNames) {
        if (SameText(each.Name, name))
            return each.Key;
    }
    if (name.size() == 1) {
        const char16_t c = UpperCase(name).front();
        if ((c >= u'0' && c <= u'9') || (c >= u'A' && c <= u'Z'))
            return c;
    }
    if (std::int32_t number = 0; name.size() > 1 && (name[0] == u'F' || name[0] == u'f') &&
                                 TryStrToInt(name.substr(1), number) && number >= 1 && number <= kFunctionKeys)
        return static_cast<std::uint16_t>(kF1 + number - 1);
    return std::nullopt;
}

struct TToken {
    String Text;
    bool Quoted = false;
};

/// The tokens of one line and the place reached in them.
class TLineReader {
public:
    TLineReader(StringView line, StringView fileName, int number) : FFileName(fileName), FNumber(number) {
        Split(line);
    }

    bool AtEnd() const { return FPlace == FTokens.size(); }
    const TToken* Peek() const { return AtEnd() ? nullptr : &FTokens[FPlace]; }
    /// True, and one further, when the next token is this word.
    bool Accept(StringView word) {
        if (AtEnd() || FTokens[FPlace].Quoted || !SameText(FTokens[FPlace].Text, word))
            return false;
        ++FPlace;
        return true;
    }
    String Next(StringView what) {
        if (AtEnd())
            Fail(u"expected " + String(what));
        return FTokens[FPlace++].Text;
    }
    int Number(StringView what) {
        const String text = Next(what);
        std::int32_t value = 0;
        if (!TryStrToInt(text, value))
            Fail(u"expected " + String(what) + u", found \"" + text + u"\"");
        return value;
    }
    void ExpectEnd() const {
        if (!AtEnd())
            Fail(u"\"" + FTokens[FPlace].Text + u"\" is too much here");
    }
    [[noreturn]] void Fail(StringView problem) const { throw EScriptError(FFileName, FNumber, problem); }
    int LineNumber() const { return FNumber; }

private:
    void Split(StringView line) {
        std::size_t i = 0;
        while (i < line.size()) {
            if (line[i] == u' ' || line[i] == u'\t') {
                ++i;
                continue;
            }
            if (line[i] == u'#')
                return;
            TToken token;
            if (line[i] == u'"') {
                token.Quoted = true;
                i = SplitQuoted(line, i + 1, token.Text);
            } else {
                const std::size_t end = std::min(line.find_first_of(u" \t", i), line.size());
                token.Text = line.substr(i, end - i);
                i = end;
            }
            FTokens.push_back(std::move(token));
        }
    }
    std::size_t SplitQuoted(StringView line, std::size_t i, String& text) const {
        for (; i < line.size(); ++i) {
            if (line[i] != u'"') {
                text += line[i];
            } else if (i + 1 < line.size() && line[i + 1] == u'"') {
                text += u'"';
                ++i;
            } else {
                return i + 1;
            }
        }
        Fail(u"a quote is missing");
    }

    StringView FFileName;
    int FNumber;
    std::vector<TToken> FTokens;
    std::size_t FPlace = 0;
};

bool EndsTarget(const TToken& token) {
    for (const char16_t* word : {u"at", u"with", u"double", u"right", u"middle"}) {
        if (!token.Quoted && SameText(token.Text, word))
            return true;
    }
    return false;
}

TPoint ReadPoint(TLineReader& line) {
    const String text = line.Next(u"a point such as 10,5");
    const std::size_t comma = text.find(u',');
    TPoint point;
    if (comma == String::npos || !TryStrToInt(StringView(text).substr(0, comma), point.X) ||
        !TryStrToInt(StringView(text).substr(comma + 1), point.Y))
        line.Fail(u"expected a point such as 10,5, found \"" + text + u"\"");
    return point;
}

TScriptTarget ReadTarget(TLineReader& line) {
    TScriptTarget target;
    target.Name = line.Next(u"the name of a control");
    while (line.Peek() && !EndsTarget(*line.Peek()))
        target.Part.push_back(line.Next({}));
    if (line.Accept(u"at"))
        target.At = ReadPoint(line);
    return target;
}

std::vector<std::uint16_t> ReadHeldKeys(TLineReader& line) {
    const String text = line.Next(u"keys such as Ctrl+Shift");
    std::vector<std::uint16_t> held;
    for (const String& name : SplitString(text, u"+")) {
        const auto key = FindKey(name);
        if (!key || !IsModifier(*key))
            line.Fail(u"\"" + name + u"\" is not a key that can be held down");
        held.push_back(*key);
    }
    return held;
}

void ReadButton(TLineReader& line, TScriptCommand& command) {
    if (line.Accept(u"right"))
        command.Button = TScriptButton::Right;
    else if (line.Accept(u"middle"))
        command.Button = TScriptButton::Middle;
}

void ReadClick(TLineReader& line, TScriptCommand& command) {
    command.Action = TScriptAction::Click;
    command.Target = ReadTarget(line);
    if (line.Accept(u"with"))
        command.Held = ReadHeldKeys(line);
    command.Double = line.Accept(u"double");
    ReadButton(line, command);
}

void ReadMouse(TLineReader& line, TScriptCommand& command) {
    if (line.Accept(u"move"))
        command.Action = TScriptAction::MouseMove;
    else if (line.Accept(u"down"))
        command.Action = TScriptAction::MouseDown;
    else if (line.Accept(u"up"))
        command.Action = TScriptAction::MouseUp;
    else
        line.Fail(u"expected mouse move, mouse down or mouse up");
    if (command.Action != TScriptAction::MouseUp)
        command.Target = ReadTarget(line);
    if (command.Action != TScriptAction::MouseMove)
        ReadButton(line, command);
}

void ReadKey(TLineReader& line, TScriptCommand& command) {
    command.Action = TScriptAction::Key;
    const String name = line.Next(u"a key");
    const auto key = ParseKey(name);
    if (!key)
        line.Fail(u"\"" + name + u"\" is not a key");
    command.Key = *key;
    if (line.Accept(u"times"))
        command.Count = line.Number(u"how many times");
}

void ReadWheel(TLineReader& line, TScriptCommand& command) {
    command.Action = TScriptAction::Wheel;
    command.Target.Name = line.Next(u"the name of a control");
    command.Count = line.Number(u"the number of notches");
}

void ReadPath(TLineReader& line, TScriptCommand& command) {
    command.Path = line.Next(u"a property such as NameEdit.Text");
    if (command.Path.find(u'.') == String::npos)
        line.Fail(u"\"" + command.Path + u"\" names no property, as NameEdit.Text does");
}

void ReadComparison(TLineReader& line, TScriptCommand& command) {
    ReadPath(line, command);
    if (line.Accept(u"="))
        command.Comparison = TScriptComparison::Equal;
    else if (line.Accept(u"<>"))
        command.Comparison = TScriptComparison::Different;
    else if (line.Accept(u"contains"))
        command.Comparison = TScriptComparison::Contains;
    else
        line.Fail(u"expected =, <> or contains");
    command.Text = line.Next(u"a value");
}

void ReadSet(TLineReader& line, TScriptCommand& command) {
    command.Action = TScriptAction::Set;
    ReadPath(line, command);
    if (!line.Accept(u"="))
        line.Fail(u"expected =");
    command.Text = line.Next(u"a value");
}

void ReadShot(TLineReader& line, TScriptCommand& command) {
    command.Action = TScriptAction::Shot;
    command.Text = line.Next(u"the name of the picture");
    if (!IsValidIdent(StringReplace(command.Text, u"-", u"_", {rfReplaceAll})))
        line.Fail(u"the name of a picture consists of letters, digits, - and _");
}

TScriptCommand ReadCommand(TLineReader& line) {
    TScriptCommand command;
    command.Line = line.LineNumber();
    if (line.Accept(u"click")) {
        ReadClick(line, command);
    } else if (line.Accept(u"type")) {
        command.Action = TScriptAction::Type;
        command.Text = line.Next(u"a text");
    } else if (line.Accept(u"key")) {
        ReadKey(line, command);
    } else if (line.Accept(u"hold")) {
        command.Action = TScriptAction::Hold;
        command.Held = ReadHeldKeys(line);
    } else if (line.Accept(u"release")) {
        command.Action = TScriptAction::Release;
        command.Held = ReadHeldKeys(line);
    } else if (line.Accept(u"mouse")) {
        ReadMouse(line, command);
    } else if (line.Accept(u"wheel")) {
        ReadWheel(line, command);
    } else if (line.Accept(u"set")) {
        ReadSet(line, command);
    } else if (line.Accept(u"wait")) {
        command.Action = TScriptAction::Wait;
        if (line.Accept(u"for")) {
            command.Path = line.Next(u"the name of a control");
            command.Comparison = TScriptComparison::Shows;
        } else {
            ReadComparison(line, command);
        }
        if (line.Accept(u"within"))
            command.Milliseconds = line.Number(u"milliseconds");
    } else if (line.Accept(u"expect")) {
        command.Action = TScriptAction::Expect;
        ReadComparison(line, command);
    } else if (line.Accept(u"shot")) {
        ReadShot(line, command);
    } else {
        line.Fail(u"\"" + line.Next({}) + u"\" is not a command");
    }
    line.ExpectEnd();
    return command;
}

} // namespace

EScriptError::EScriptError(StringView fileName, int line, StringView problem)
    : Exception(String(fileName) + u"(" + IntToStr(line) + u"): " + String(problem)) {
}

std::vector<TScriptCommand> ParseScript(std::string_view bytes, StringView fileName) {
    std::vector<TScriptCommand> commands;
    int number = 0;
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        bytes.remove_prefix(kByteOrderMark.size());
    for (const String& text : SplitLines(Utf8Decode(bytes))) {
        TLineReader line(text, fileName, ++number);
        if (!line.AtEnd())
            commands.push_back(ReadCommand(line));
    }
    return commands;
}

std::optional<TScriptKey> ParseKey(StringView name) {
    TScriptKey key;
    std::vector<String> names = SplitString(name, u"+");
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto found = FindKey(names[i]);
        if (!found)
            return std::nullopt;
        if (i + 1 == names.size())
            key.Key = *found;
        else if (IsModifier(*found))
            key.Held.push_back(*found);
        else
            return std::nullopt;
    }
    if (names.empty())
        return std::nullopt;
    return key;
}

String KeyName(std::uint16_t key) {
    for (const TKeyName& each : kKeyNames) {
        if (each.Key == key)
            return each.Name;
    }
    if (key >= kF1 && key < kF1 + kFunctionKeys)
        return u"F" + IntToStr(key - kF1 + 1);
    if ((key >= u'0' && key <= u'9') || (key >= u'A' && key <= u'Z'))
        return String(1, static_cast<char16_t>(key));
    return IntToStr(key);
}

} // namespace gallery
