// Text forms: what is read from them, what is refused and where, and that writing gives the same text back.

#include "framework/system/strings.h"
#include "framework/system/textform.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

using namespace framework;
using namespace std::string_literals;

namespace {

std::string Narrow(StringView text) {
    return Utf8Encode(text);
}

// A value in one line, kind by kind, without any of the writer's choices.
std::string Describe(TFormValue value);

std::string Describe(TFormObject object) {
    std::string text;
    switch (object.Kind()) {
    case TFormObjectKind::Object:
        text = "object ";
        break;
    case TFormObjectKind::Inherited:
        text = "inherited ";
        break;
    case TFormObjectKind::Inline:
        text = "inline ";
        break;
    case TFormObjectKind::Item:
        text = "item ";
        break;
    }
    text += Narrow(object.Name()) + ":" + Narrow(object.ClassName());
    if (object.Position())
        text += "[" + std::to_string(*object.Position()) + "]";
    for (const TFormProperty property : object.Properties())
        text += " " + Narrow(property.Name()) + "=" + Describe(property.Value());
    for (const TFormObject child : object.Children())
        text += " {" + Describe(child) + "}";
    return text;
}

std::string Describe(TFormValue value) {
    std::string text;
    switch (value.Kind()) {
    case TFormValueKind::Integer:
        return "i" + std::to_string(value.AsInteger());
    case TFormValueKind::Float:
        return "f" + Narrow(value.Text()) + (value.Suffix() != 0 ? std::string(1, value.Suffix()) : "");
    case TFormValueKind::String:
        for (const char16_t unit : value.Text())
            text += unit >= u' ' && unit < 0x7F ? std::string(1, static_cast<char>(unit))
                                                : "\\" + std::to_string(static_cast<unsigned>(unit)) + ";";
        return "\"" + text + "\"";
    case TFormValueKind::Identifier:
        return Narrow(value.Text());
    case TFormValueKind::Nil:
        return "<nil>";
    case TFormValueKind::Null:
        return "<null>";
    case TFormValueKind::Set:
    case TFormValueKind::List:
        for (const TFormValue element : value.Elements())
            text += (text.empty() ? "" : ",") + Describe(element);
        return value.Kind() == TFormValueKind::Set ? "[" + text + "]" : "(" + text + ")";
    case TFormValueKind::Collection:
        for (const TFormObject item : value.Items())
            text += "{" + Describe(item) + "}";
        return "<" + text + ">";
    case TFormValueKind::Binary:
        for (const std::uint8_t byte : value.Bytes())
            text += std::to_string(byte) + ".";
        return "b" + text;
    }
    return "?";
}

std::string InObject(std::string_view properties) {
    return "object A: TA\n" + std::string(properties) + "\nend\n";
}

TFormValue FirstValue(const TFormDocument& document) {
    return (*document.Root().Properties().begin()).Value();
}

// A form in the customary layout, with every construct that designers write.
constexpr const char* CustomaryForm = R"(inherited CustomerForm: TCustomerForm
  Left = -200
  Height = 9007199254740993
  Caption = 'Klient'#243'w '#55357#56832' it'#39's'
  Color = clBtnFace
  Font.Charset = DEFAULT_CHARSET
  Font.Name = 'Tahoma'
  Font.Style = []
  Anchors = [akLeft, akTop, akRight]
  Scale = 1.250000000000000000
  Price = 5.000000000000000000c
  Created = 38000.5d
  Ratio = 0.5s
  Big = 1.7E308
  Count = 5
  Mask = $00FF8040
  OnShow = FormShow
  DataSource = Data.CustomerSource
  Visible = False
  PopupMenu = nil
  Default = Null
  Empty = ''
  Hint = 
    'a string of just more than sixty-four characters is cut after th' +
    'e sixty-fourth'#13#10'and goes on'
  Small.Data = {0A0B}
  Glyph.Data = {
    000102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F
    202122}
  NoData = {}
  Lines.Strings = (
    'one'
    ''
    
      'a string of just more than sixty-four characters is cut after th' +
      'e sixty-fourth'
    'three')
  Mixed = (
    1
    -2.5
    clRed
    (
      'nested'
      ()))
  Columns = <
    item
      FieldName = 'NAME'
      Title.Caption = 'Name'
      Item = 3
      End = 4
      PickList.Strings = (
        'a')
      Sub = <
        item
        end
        item [7]
          A = 1
        end>
    end
    item
    end>
  NoColumns = <>
  Object = 1
  Inline = 2
  TextHeight = 13
  inherited NameEdit: TEdit [2]
    Width = 100
  end
  inline Frame1: TFrame1
    object NameEdit: TEdit
    end
    inherited Panel1: TPanel
    end
  end
  object TLabel
    object Żółty: TŻółw [0]
      Größe = 1
    end
  end
end
)";

std::string WithCrLf(std::string_view text) {
    std::string converted;
    for (const char c : text) {
        if (c == '\n')
            converted += '\r';
        converted += c;
    }
    return converted;
}

TEST(TextForm, GivesBackACustomaryTextByteForByte) {
    const std::string lf = CustomaryForm;
    for (const std::string& text : {lf, WithCrLf(lf), "\xEF\xBB\xBF" + lf}) {
        const TFormDocument document = ParseTextForm(text);
        EXPECT_EQ(WriteTextForm(document, document.Layout()), text);
    }
    EXPECT_NE(WriteTextForm(ParseTextForm(lf), {}).find("it''s"), std::string::npos);
    EXPECT_EQ(WriteTextForm(ParseTextForm(lf), {}).substr(0, 39), "inherited CustomerForm: TCustomerForm\r\n");
}

TEST(TextForm, ReadsEveryConstruct) {
    const TFormDocument document = ParseTextForm(CustomaryForm);
    EXPECT_EQ(
        Describe(document.Root()),
        "inherited CustomerForm:TCustomerForm Left=i-200 Height=i9007199254740993"
        " Caption=\"Klient\\243;w \\55357;\\56832; it's\" Color=clBtnFace Font.Charset=DEFAULT_CHARSET"
        " Font.Name=\"Tahoma\" Font.Style=[] Anchors=[akLeft,akTop,akRight] Scale=f1.250000000000000000"
        " Price=f5.000000000000000000c Created=f38000.5d Ratio=f0.5s Big=f1.7E308 Count=i5 Mask=i16744512"
        " OnShow=FormShow DataSource=Data.CustomerSource Visible=False PopupMenu=<nil> Default=<null> Empty=\"\""
        " Hint=\"a string of just more than sixty-four characters is cut after the sixty-fourth\\13;\\10;and goes"
        " on\" Small.Data=b10.11. Glyph.Data=b0.1.2.3.4.5.6.7.8.9.10.11.12.13.14.15.16.17.18.19.20.21.22.23.24.25."
        "26.27.28.29.30.31.32.33.34. NoData=b Lines.Strings=(\"one\",\"\",\"a string of just more than sixty-four"
        " characters is cut after the sixty-fourth\",\"three\") Mixed=(i1,f-2.5,clRed,(\"nested\",()))"
        " Columns=<{item : FieldName=\"NAME\" Title.Caption=\"Name\" Item=i3 End=i4 PickList.Strings=(\"a\")"
        " Sub=<{item :}{item :[7] A=i1}>}{item :}> NoColumns=<> Object=i1 Inline=i2 TextHeight=i13"
        " {inherited NameEdit:TEdit[2] Width=i100} {inline Frame1:TFrame1 {object NameEdit:TEdit}"
        " {inherited Panel1:TPanel}} {object :TLabel {object Żółty:TŻółw[0] Größe=i1}}");
}

TEST(TextForm, ReadsLayoutsThatNoWriterGives) {
    struct Row {
        const char* Name;
        std::string Text;
        const char* Expected;
    };
    const Row rows[] = {
        {"blank lines around, no last newline", "\n\r\n \tobject A: TA\nend", "object A:TA"},
        {"one line", "object A:TA X=1 Y='a' Z=[b,c] object B:TB end end",
         "object A:TA X=i1 Y=\"a\" Z=[b,c] {object B:TB}"},
        {"blank before the colon", "object A  :\n TA [ 3 ]\nend", "object A:TA[3]"},
        {"mixed line ends", "object A: TA\r\n  X = 1\n  Y = 2\r\nend\n", "object A:TA X=i1 Y=i2"},
        {"upper case keywords", "OBJECT A: TA X = <ITEM END> END", "object A:TA X=<{item :}>"},
        {"keywords as names",
         "object Object: End Inherited = 1 Inline = 2 End = 3 Item = 4 object Item: Inline end end",
         "object Object:End Inherited=i1 Inline=i2 End=i3 Item=i4 {object Item:Inline}"},
        {"children with one-word headers", "object A object B object end end end end",
         "object :A {object :B {object :end}}"},
        {"items with nothing between", InObject("C = <item end item A = 1 end item\nend>"),
         "object A:TA C=<{item :}{item : A=i1}{item :}>"},
        {"a property called end in an item", InObject("C = <item End = 1 end>"), "object A:TA C=<{item : End=i1}>"},
        {"list on one line", InObject("L = ('a' 'b' + 'c' 1 -1 x.y nil)"),
         "object A:TA L=(\"a\",\"bc\",i1,i-1,x.y,<nil>)"},
        {"adjacent codes and quotes", InObject("S = 'a'#66'c'#$44#$1F600'''e'"),
         "object A:TA S=\"aBcD\\55357;\\56832;'e\""},
        {"quote alone", InObject("S = ''''"), "object A:TA S=\"'\""},
        {"NUL code", InObject("S = #0'a'#0"), "object A:TA S=\"\\0;a\\0;\""},
        {"plus on the next line", InObject("S = 'a'\n + 'b' +\n\n 'c'"), "object A:TA S=\"abc\""},
        {"tab in a string", InObject("S = 'a\tb'"), "object A:TA S=\"a\\9;b\""},
        {"UTF-8 in a string", InObject("S = 'zażółć 😀!'"),
         "object A:TA S=\"za\\380;\\243;\\322;\\263; \\55357;\\56832;!\""},
        {"long plain string", InObject("S = 'the eight-byte steps of the scanner end within a word: (''), ąę'"),
         "object A:TA S=\"the eight-byte steps of the scanner end within a word: ('), \\261;\\281;\""},
        {"binary in odd pieces", InObject("B = { 00\n aF\n\n Ff00}"), "object A:TA B=b0.175.255.0."},
        {"limits of integers",
         InObject("A = 9223372036854775807 B = -9223372036854775808 C = $FFFFFFFFFFFFFFFF D = 007"),
         "object A:TA A=i9223372036854775807 B=i-9223372036854775808 C=i-1 D=i7"},
        {"floats and integers", InObject("A = 5 B = 5.000 C = 5e3 D = -1.5E-3c E = 5d F = 0."),
         "object A:TA A=i5 B=f5.000 C=f5e3 D=f-1.5E-3c E=f5d F=f0."},
        {"a set over lines, with numbers", InObject("S = [\n  a ,\n  3,-1 ]"), "object A:TA S=[a,i3,i-1]"},
        {"names in the frame's own scope",
         "object A: TA inline F: TF object B: TB end end inline G: TF object b: TB object C: TC end end end object B: "
         "TB "
         "end object C: TC end object A: TA end end",
         "object A:TA {inline F:TF {object B:TB}} {inline G:TF {object b:TB {object C:TC}}} {object B:TB} {object "
         "C:TC} "
         "{object A:TA}"},
        {"a property of the object also in its items", InObject("W = 1 C = <item W = 2 end item W = 3 end> V = 1"),
         "object A:TA W=i1 C=<{item : W=i2}{item : W=i3}> V=i1"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Name);
        const TFormDocument document = ParseTextForm(row.Text);
        EXPECT_EQ(Describe(document.Root()), row.Expected);
        for (const TFormLayout& layout : {TFormLayout{}, TFormLayout{TFormLineEnd::Lf, true, true, true}}) {
            const std::string written = WriteTextForm(document, layout);
            const TFormDocument again = ParseTextForm(written);
            EXPECT_EQ(Describe(again.Root()), row.Expected);
            EXPECT_EQ(WriteTextForm(again, layout), written);
        }
    }
}

TEST(TextForm, RefusesWhatIsNoFormAndSaysWhere) {
    struct Row {
        const char* Name;
        std::string Text;
        std::uint32_t Line;
        std::uint32_t Column;
        const char* Problem;
    };
    const Row rows[] = {
        {"nothing", "", 1, 1, "begins with object"},
        {"source code", "\nunit Main;\n", 2, 1, "begins with object"},
        {"no end", "object A: TA\n  X = 1\n", 3, 1, "not the end of the text"},
        {"text behind the form", "object A: TA\nend\nend", 3, 1, "the end of the text is expected, not \"end\""},
        {"a second root", "object A: TA\nend object B: TB end", 2, 5, "the end of the text is expected"},
        {"no class", "object A:\n  [1]\nend", 2, 3, "a name is expected, not \"[1]\""},
        {"dotted component name", "object A.B: TA\nend", 1, 8, "no dots"},
        {"position that is no integer", "object A: TA [1.5]\nend", 1, 15, "integer of 32 bits"},
        {"position beyond 32 bits", "object A: TA [2147483648]\nend", 1, 15, "integer of 32 bits"},
        {"property without value", "object A: TA\n  X =\nend\n", 4, 1, "a property, an object or end"},
        {"property without =", InObject("  Größe 5"), 2, 9, "= is expected, not \"5\""},
        {"empty part of a path", InObject("  A..B = 5"), 2, 5, "a name is expected, not \".B\""},
        {"property behind a child", "object A: TA\nobject B: TB end\nX = 1\nend", 3, 1, "behind a child"},
        {"unclosed string", InObject("  S = 'abc"), 2, 7, "not closed on its line"},
        {"unclosed string at the end", "object A: TA\n S = 'abc", 2, 6, "not closed on its line"},
        {"code torn off", InObject("  S = 'a'#\n13'b'"), 2, 10, "# without the code"},
        {"hexadecimal code torn off", InObject("  S = #$"), 2, 7, "# without the code"},
        {"code beyond Unicode", InObject("  S = #1114112"), 2, 7, "no character"},
        {"plus without string", InObject("  S = 'a' +\n  5"), 3, 3, "a string behind the + is expected, not \"5\""},
        {"column behind wide characters", InObject("  S = 'ąę😀' x y"), 2, 15, "= is expected, not \"y\""},
        {"integer too large", InObject("  X = 9223372036854775808"), 2, 7, "64 bits"},
        {"integer too small", InObject("  X = -9223372036854775809"), 2, 7, "64 bits"},
        {"far too large", InObject("  X = 99999999999999999999999999999999999999"), 2, 7, "64 bits"},
        {"hexadecimal too large", InObject("  X = $10000000000000000"), 2, 7, "64 bits"},
        {"float too large", InObject("  X = 1e99999"), 2, 7, "does not fit"},
        {"float with many digits", InObject("  X = " + std::string(6000, '9') + ".0"), 2, 7, "does not fit"},
        {"letters behind a number", InObject("  X = 5cats"), 2, 9, "the end of the number is expected, not \"ats\""},
        {"minus alone", InObject("  X = - 5"), 2, 8, "a digit is expected, not a blank"},
        {"half a byte", InObject("  B = {0A0}"), 2, 10, "half a byte"},
        {"no hex digit", InObject("  B = {0A 0G}"), 2, 11, "half a byte"},
        {"unclosed binary", InObject("  B = {0A 0B"), 2, 7, "not closed"},
        {"unclosed list", "object A: TA\n  L = ('a'\n", 3, 1, "a value or )"},
        {"set with a string", InObject("  S = [a, 'b']"), 2, 11, "a name is expected"},
        {"set with a float", InObject("  S = [1.5]"), 2, 8, "names and integers"},
        {"comma at the end of a set", InObject("  S = [a,]"), 2, 10, "behind the comma"},
        {"set without comma", InObject("  S = [a b]"), 2, 10, "a comma or ]"},
        {"object in a collection", InObject("  C = <object B: TB end>"), 2, 8, "holds items"},
        {"item without end", InObject("  C = <item>"), 2, 12, "a property or end"},
        {"property twice", InObject("  AZ = 1\n  Y = 2\n  az = 3"), 4, 3, "given twice: az"},
        {"property twice around items", InObject("  X = 1\n  C = <item X = 1 end>\n  X = 3"), 4, 3, "given twice: X"},
        {"property twice in an item", InObject("  C = <item\n A.B = 1\n A.B = 2 end>"), 4, 2, "given twice: A.B"},
        {"component twice", "object A: TA\n object B: TB end\n object C: TC\n  inherited b: TB end\n end\nend", 4, 3,
         "there already: b"},
        {"component twice in a frame", "object A: TA inline F: TF object B: TB end\nobject B: TB end end end", 2, 1,
         "there already: B"},
        {"component named as its frame's neighbour after the frame",
         "object A: TA object B: TB end inline F: TF object B: TB end end\nobject B: TB end end", 2, 1,
         "there already: B"},
        {"conflict marker", "object A: TA\n  X = 1\n<<<<<<< mine\n  Y = 2\n", 3, 1, "merge conflict"},
        {"conflict marker in a list", InObject("  L = (\n    'a'\n<<<<<<< mine\n    'b')"), 4, 1, "merge conflict"},
        {"conflict marker in a collection", InObject("  C = <\n    item\n    end\n>>>>>>> theirs"), 5, 1,
         "merge conflict"},
        {"conflict marker behind a plus", InObject("  S = 'a' +\n=======\n'b'"), 3, 1, "merge conflict"},
        {"NUL", "object A: TA\n  S = 'a\0b'\nend"s, 2, 9, "NUL"},
        {"only NULs", std::string(64, '\0'), 1, 1, "NUL"},
        {"UTF-16 with a mark", "\xFF\xFEo\0b\0"s, 1, 1, "UTF-16"},
        {"UTF-16, other order", "\xFE\xFF\0o\0b"s, 1, 1, "UTF-16"},
        {"not UTF-8", "object A: TA\n  S = '\xC5\xBC\xF3\xB3'\nend", 2, 9, "not UTF-8"},
        {"sequence cut off by the end", "object A: TA\n  S = '\xE2\x82", 2, 8, "not UTF-8"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Name);
        TParseOptions options;
        options.FileName = u"forms/main.form";
        try {
            ParseTextForm(row.Text, options);
            ADD_FAILURE() << "accepted";
        } catch (const EFormSyntax& error) {
            EXPECT_EQ(error.Line(), row.Line) << error.what();
            EXPECT_EQ(error.Column(), row.Column) << error.what();
            EXPECT_NE(std::string(error.what()).find(row.Problem), std::string::npos) << error.what();
            EXPECT_EQ(std::string(error.what()).rfind("forms/main.form(" + std::to_string(row.Line) + ",", 0), 0u);
        }
    }
}

TEST(TextForm, RemembersWhereThingsStand) {
    const TFormDocument document = ParseTextForm("\xEF\xBB\xBFobject A: TA\r\n  Ö = 'ąę' P.Q =\r\n    'long' +\r\n    "
                                                 "'er'\r\n  C = <\r\n    item\r\n    end>\r\n  L = ( 1\r\n 2)\r\n"
                                                 " object B: TB\r\n  end\r\nend\r\n");
    std::string places;
    const auto note = [&](const auto& node) {
        places += std::to_string(node.Line()) + ":" + std::to_string(node.Column()) + " ";
    };
    note(document.Root());
    for (const TFormProperty property : document.Root().Properties()) {
        note(property);
        note(property.Value());
        for (const TFormObject item : property.Value().Items())
            note(item);
        for (const TFormValue element : property.Value().Elements())
            note(element);
    }
    for (const TFormObject child : document.Root().Children())
        note(child);
    EXPECT_EQ(places, "1:1 2:3 2:7 2:12 3:5 5:3 5:7 6:5 8:3 8:7 8:9 9:2 10:2 ");
}

TEST(TextForm, ReadsUndeclaredCodePagesWhereAllowed) {
    const std::string bytes = "object A: TA\n  S = 'za\xBF\xF3\xB3\xE6 \x80'\nend\n";
    TParseOptions options;
    options.FallbackEncoding = TFallbackEncoding::Windows1250;
    EXPECT_EQ(FirstValue(ParseTextForm(bytes, options)).Text(), u"zażółć €");
    options.FallbackEncoding = TFallbackEncoding::Windows1252;
    EXPECT_EQ(FirstValue(ParseTextForm(bytes, options)).Text(), u"za¿ó³æ €");
    EXPECT_EQ(FirstValue(ParseTextForm(InObject("S = 'zażółć'"), options)).Text(), u"zażółć") << "sound UTF-8 stays";
    EXPECT_THROW(ParseTextForm("\xEF\xBB\xBF" + bytes, options), EFormSyntax) << "the mark promises UTF-8";
}

TEST(TextForm, WritesTheCodePageThatItRead) {
    TParseOptions options;
    options.FallbackEncoding = TFallbackEncoding::Windows1250;
    const auto rewritten = [&](const std::string& bytes, TFormLayout layout) {
        const TFormDocument document = ParseTextForm(bytes, options);
        layout.CodePage = document.Layout().CodePage;
        return WriteTextForm(document, layout);
    };
    const TFormLayout raw{TFormLineEnd::Lf, false, true, false};
    const std::string polish = "object \xB3\xF3: TA\n  S = 'za\xBF\xF3\xB3\xE6 \x80'\nend\n";
    EXPECT_EQ(rewritten(polish, raw), polish);
    EXPECT_EQ(rewritten(polish, {TFormLineEnd::Lf, true}),
              "object \xB3\xF3: TA\n  S = 'za'#380#243#322#263' '#8364\nend\n")
        << "no mark goes with a code page";

    TFormLayout layout = raw;
    layout.CodePage = TFallbackEncoding::Windows1252;
    EXPECT_EQ(WriteTextForm(ParseTextForm("object A: T\n  S = 'ó€ł😀'\nend\n"), layout),
              "object A: T\n  S = '\xF3\x80'#322#55357#56832\nend\n");
    EXPECT_THROW(WriteTextForm(ParseTextForm("object Łan: T\nend\n"), layout), EConvertError);
    EXPECT_EQ(WriteTextForm(ParseTextForm("object A: T\n  S = 'Ã³'\nend\n"), layout),
              "object A: T\n  S = #195#179\nend\n")
        << "its bytes would be those of another letter in UTF-8";
    EXPECT_THROW(WriteTextForm(ParseTextForm("object Ãª: T\nend\n"), layout), EConvertError);
}

TEST(TextForm, WritesStringsInPieces) {
    struct Row {
        const char* Name;
        String Text;
        bool Raw;
        const char* Expected;
    };
    const String sixtyThree(63, u'x');
    const std::string narrow(63, 'x');
    const std::string fits = "'" + narrow + "y'";
    const std::string cut = "\n    '" + narrow + "y' +\n    'z'";
    const std::string quotes = "\n    '" + narrow + "''' +\n    'z'";
    const std::string codes = "\n    '" + narrow + "'#55357 +\n    #56832'z'";
    const std::string pair = "\n    '" + narrow + "' +\n    '😀z'";
    const Row rows[] = {
        {"sixty-four fit", sixtyThree + u"y", false, fits.c_str()},
        {"sixty-five do not", sixtyThree + u"yz", false, cut.c_str()},
        {"a quote counts once", sixtyThree + u"'z", false, quotes.c_str()},
        {"codes of a pair may part", sixtyThree + u"😀z", false, codes.c_str()},
        {"a character may not", sixtyThree + u"😀z", true, pair.c_str()},
        {"controls and quotes", u"\r\n'a'\t\x7F", true, "#13#10'''a'''#9'\x7F'"},
        {"lone surrogates",
         u"a\xD83D\xDE00\xDE00\xD83D"
         u"b",
         true, "'a😀'#56832#55357'b'"},
        {"beyond ASCII", u"żółw", false, "#380#243#322'w'"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Name);
        TFormBuilder builder;
        builder.BeginObject(TFormObjectKind::Object, u"A", u"TA");
        builder.Property(u"S");
        builder.Text(row.Text);
        builder.EndObject();
        const std::string written = WriteTextForm(builder.Finish(), {TFormLineEnd::Lf, false, row.Raw, false});
        EXPECT_EQ(written, std::string("object A: TA\n  S = ") + row.Expected + "\nend\n");
        EXPECT_EQ(FirstValue(ParseTextForm(written)).Text(), row.Text);
    }
}

TEST(TextForm, ShortBinaryDataStaysBehindItsBrace) {
    const std::string line(62, '0');
    EXPECT_EQ(WriteTextForm(ParseTextForm(InObject("B = {" + line + "}"))), WithCrLf(InObject("  B = {" + line + "}")));
    EXPECT_EQ(WriteTextForm(ParseTextForm(InObject("B = {" + line + "00}"))),
              WithCrLf(InObject("  B = {\n    " + line + "00}")));
}

TEST(TextForm, BuilderRefusesWhatCouldNotBeReadBack) {
    using TStep = std::function<void(TFormBuilder&)>;
    const auto integer = [](TFormBuilder& b) { b.Integer(1); };
    const auto text = [](TFormBuilder& b) { b.Text(u"x"); };
    const auto end = [](TFormBuilder& b) { b.EndObject(); };
    const auto list = [](TFormBuilder& b) { b.BeginList(); };
    const auto set = [](TFormBuilder& b) { b.BeginSet(); };
    const auto collection = [](TFormBuilder& b) { b.BeginCollection(); };
    const auto property = [](StringView name) { return [=](TFormBuilder& b) { b.Property(name); }; };
    const auto object = [](StringView name, StringView className) {
        return [=](TFormBuilder& b) { b.BeginObject(TFormObjectKind::Object, name, className); };
    };
    const struct {
        const char* Name;
        std::vector<TStep> Before;
        TStep Fault;
    } rows[] = {
        {"second root", {end}, object(u"B", u"TB")},
        {"item outside a collection", {}, [](TFormBuilder& b) { b.BeginItem(); }},
        {"item as object", {}, [](TFormBuilder& b) { b.BeginObject(TFormObjectKind::Item, u"", u"T"); }},
        {"value without property", {}, integer},
        {"two values", {property(u"A"), integer}, integer},
        {"property without value", {property(u"A")}, property(u"B")},
        {"object ended without value", {property(u"A")}, end},
        {"string in a set", {property(u"A"), set}, text},
        {"list in a set", {property(u"A"), set}, list},
        {"value in a collection", {property(u"A"), collection}, integer},
        {"wrong end", {property(u"A"), list}, [](TFormBuilder& b) { b.EndCollection(); }},
        {"finished while open", {}, [](TFormBuilder& b) { b.Finish(); }},
        {"property behind a child", {object(u"B", u"TB"), end}, property(u"A")},
        {"empty class", {}, object(u"B", u"")},
        {"blank in a name", {}, object(u"B C", u"TB")},
        {"dot in a component name", {}, object(u"B.C", u"TB")},
        {"digit in front", {}, property(u"Font.1")},
        {"dot at the end", {}, property(u"Font.")},
        {"lone surrogate in a name", {}, property(u"A\xD800")},
        {"identifier with a blank", {property(u"A")}, [](TFormBuilder& b) { b.Identifier(u"a b"); }},
        {"unknown suffix", {property(u"A")}, [](TFormBuilder& b) { b.Float(1, 'x'); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        TFormBuilder builder;
        builder.BeginObject(TFormObjectKind::Object, u"A", u"TA");
        for (const TStep& step : row.Before)
            step(builder);
        EXPECT_THROW(row.Fault(builder), EInvalidOperation);
    }
    TFormBuilder builder;
    builder.BeginObject(TFormObjectKind::Object, u"A", u"TA");
    builder.BeginObject(TFormObjectKind::Object, u"B", u"TB");
    EXPECT_THROW(builder.BeginObject(TFormObjectKind::Object, u"b", u"TB"), EFormSyntax);
}

// Makes any form the builder allows.
class RandomForm {
public:
    explicit RandomForm(unsigned randomSeed) : FRandom(randomSeed) {}

    TFormDocument Make() {
        Object(4);
        return FBuilder.Finish();
    }

private:
    unsigned Pick(unsigned count) { return static_cast<unsigned>(FRandom() % count); }
    String FreshName() { return u"N" + Utf8Decode(std::to_string(++FNames)); }

    void Object(unsigned depth) {
        const auto kind = static_cast<TFormObjectKind>(Pick(3));
        const auto position = Pick(4) == 0 ? std::optional<std::int32_t>(Pick(9)) : std::nullopt;
        FBuilder.BeginObject(kind, Pick(5) == 0 ? String() : FreshName(), u"TŁódź", position);
        Properties(depth);
        for (unsigned i = depth == 0 ? 0 : Pick(4); i > 0; --i)
            Object(depth - 1);
        FBuilder.EndObject();
    }

    void Properties(unsigned depth) {
        for (unsigned i = Pick(5); i > 0; --i) {
            FBuilder.Property(FreshName() + (Pick(2) == 0 ? u".End" : u""));
            Value(depth);
        }
    }

    void Value(unsigned depth) {
        switch (Pick(depth == 0 ? 6 : 9)) {
        case 0:
            return FBuilder.Integer(static_cast<std::int64_t>(FRandom()) >> Pick(64));
        case 1:
            return FBuilder.Float(static_cast<double>(static_cast<std::int64_t>(FRandom())) /
                                      static_cast<double>(1 + (FRandom() >> Pick(60))),
                                  "\0cds"[Pick(4)]);
        case 2:
            return FBuilder.Text(Text());
        case 3:
            return FBuilder.Identifier(Pick(2) == 0 ? u"nil" : u"clGrün.x");
        case 4:
            return Binary();
        case 5:
            FBuilder.BeginSet();
            for (unsigned i = Pick(4); i > 0; --i)
                Pick(3) == 0 ? FBuilder.Integer(i) : FBuilder.Identifier(Pick(2) == 0 ? u"nil" : u"akLeft");
            return FBuilder.EndSet();
        case 6:
        case 7:
            FBuilder.BeginList();
            for (unsigned i = Pick(5); i > 0; --i)
                Value(depth - 1);
            return FBuilder.EndList();
        default:
            FBuilder.BeginCollection();
            for (unsigned i = Pick(4); i > 0; --i) {
                FBuilder.BeginItem();
                Properties(depth - 1);
                FBuilder.EndItem();
            }
            return FBuilder.EndCollection();
        }
    }

    String Text() {
        const char16_t units[] = {u'a', u'\'', u' ', u'+', u'#', 0, 13, 10, 0xD83D, 0xDE00, 0x142, 0xFFFE, 0x7F, 0x80};
        String text;
        for (unsigned i = Pick(2) == 0 ? Pick(8) : Pick(200); i > 0; --i)
            text += Pick(2) == 0 ? u'x' : units[Pick(std::size(units))];
        return text;
    }

    void Binary() {
        std::vector<std::uint8_t> bytes(Pick(100));
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(Pick(256));
        FBuilder.Binary(bytes);
    }

    std::mt19937_64 FRandom;
    TFormBuilder FBuilder;
    unsigned FNames = 0;
};

TEST(TextForm, RandomFormsSurviveTheRoundTrip) {
    for (unsigned randomSeed = 1; randomSeed <= 300; ++randomSeed) {
        SCOPED_TRACE("randomSeed " + std::to_string(randomSeed));
        const TFormDocument document = RandomForm(randomSeed).Make();
        const TFormLayout layout{randomSeed % 2 == 0 ? TFormLineEnd::Lf : TFormLineEnd::CrLf, randomSeed % 3 == 0,
                                 randomSeed % 5 < 2, randomSeed % 7 < 3};
        const std::string written = WriteTextForm(document, layout);
        const TFormDocument again = ParseTextForm(written);
        ASSERT_EQ(Describe(again.Root()), Describe(document.Root()));
        ASSERT_EQ(WriteTextForm(again, layout), written);
    }
}

TEST(TextForm, BuiltFloatsComeBackExactly) {
    struct Row {
        Extended Value;
        const char* Digits;
    };
    const Row rows[] = {{5, "5.000000000000000000"},
                        {-0.25L, "-0.250000000000000000"},
                        {0.1, "0.100000000000000000"},
                        {0, "0.000000000000000000"},
                        {1e300, "1e+300"},
                        {3e-30, nullptr},
                        {0.1L, nullptr},
                        {123456789.123456789, nullptr},
                        {45000.999988425926, nullptr}};
    for (const Row& row : rows) {
        TFormBuilder builder;
        builder.BeginObject(TFormObjectKind::Object, u"", u"TA");
        builder.Property(u"F");
        builder.Float(row.Value);
        builder.EndObject();
        const TFormDocument document = ParseTextForm(WriteTextForm(builder.Finish()));
        const TFormValue value = FirstValue(document);
        EXPECT_EQ(value.Kind(), TFormValueKind::Float);
        EXPECT_EQ(static_cast<double>(value.AsExtended()), static_cast<double>(row.Value));
        if (row.Digits != nullptr) {
            EXPECT_EQ(Narrow(value.Text()), row.Digits);
        }
    }
}

std::string Repeat(std::string_view text, int times) {
    std::string repeated;
    for (int i = 0; i < times; ++i)
        repeated += text;
    return repeated;
}

TEST(TextForm, DepthCostsNoStack) {
    constexpr int depth = 100000;
    const std::string forms[] = {
        Repeat("object T ", depth) + Repeat("end ", depth),
        "object T L = " + Repeat("(", depth) + Repeat(")", depth) + " end",
        "object T C = " + Repeat("<item C = ", depth) + "1 " + Repeat("end>", depth) + " end",
    };
    for (const std::string& form : forms) {
        TParseOptions options;
        EXPECT_THROW(ParseTextForm(form, options), EFormSyntax);
        options.NestingLimit = 3 * depth;
        TFormDocument document = ParseTextForm(form, options);
        const TFormDocument copy = document;
        document = TFormDocument();
        const std::string written = WriteTextForm(copy);
        EXPECT_EQ(WriteTextForm(ParseTextForm(written, options)), written);
    }
    const auto nested = [](int levels) { return "object T L = " + Repeat("(", levels) + Repeat(")", levels) + " end"; };
    TParseOptions options;
    options.NestingLimit = 10;
    EXPECT_NO_THROW(ParseTextForm(nested(9), options));
    EXPECT_THROW(ParseTextForm(nested(10), options), EFormSyntax);
}

// With a look at all earlier names for each one these would take minutes.
TEST(TextForm, UniquenessIsCheckedInLinearTime) {
    constexpr int count = 200000;
    std::string properties;
    std::string children;
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        properties += "P" + number + " = 1\n";
        children += "object P" + number + ": T end\n";
    }
    EXPECT_NO_THROW(ParseTextForm("object A: T " + properties + children + "end"));
    EXPECT_THROW(ParseTextForm("object A: T " + properties + "P7 = 1 end"), EFormSyntax);
    EXPECT_THROW(ParseTextForm("object A: T " + children + "object P7: T end end"), EFormSyntax);
}

} // namespace
