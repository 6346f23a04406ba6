// Published tables: what rows say about values of every kind, what is stored, what is refused and how, events bound to
// methods and back.

#include "framework/system/components.h"
#include "framework/system/exceptions.h"
#include "framework/system/identifiers.h"
#include "framework/system/strings.h"

#include <gtest/gtest.h>

using namespace framework;

namespace {

enum TShape { stRound, stSquare, stOblong };
using TShapes = Set<TShape>;

const TEnumInfo& DescribeEnum(TShape) {
    static const TEnumInfo info{u"TShape", {u"stRound", u"stSquare", u"stOblong"}};
    return info;
}

constexpr TIdentifier Levels[] = {{-1, u"lvNone"}, {10, u"lvLow"}, {10, u"lvDefault"}, {20, u"lvHigh"}};

using TMeasureEvent = std::function<void(TObject* Sender, int& Width)>;

class TPenStyle : public TPersistent {
    FRAMEWORK_CLASS(TPenStyle)

public:
    std::int8_t FWidth = 1;
};

const TClassInfo& TPenStyle::StaticClass() {
    static const TClassInfo info = DescribeClass<TPenStyle>(
        u"TPenStyle", TPersistent::StaticClass(), {Property<&TPenStyle::FWidth, &TPenStyle::FWidth>(u"Width", 1)});
    return info;
}

class TFigure : public TComponent {
    FRAMEWORK_CLASS(TFigure)

public:
    explicit TFigure(TComponent* owner) : TComponent(owner) {}

    void SetShape(TShape value) {
        if (value == stOblong)
            throw EInvalidOperation(u"no room");
        FShape = value;
    }
    bool IsTitleStored() const { return FTitle != u"untitled"; }
    int GetArea() const { return 42; }
    int GetWide() const { return FWide; }
    void SetWide(int value) { FWide = value; }

    int FCount = 0;
    std::int64_t FBig = 5;
    std::uint8_t FSmall = 7;
    std::int32_t FLevel = 10;
    bool FActive = true;
    TShape FShape = stRound;
    TShapes FShapes{stRound, stOblong};
    double FRatio = 0;
    Currency FPrice;
    String FTitle = u"untitled";
    char16_t FMark = 0;
    Variant FData;
    TLines FLines;
    TBytes FBytes;
    std::unique_ptr<TPenStyle> FPen = std::make_unique<TPenStyle>();
    TFigure* FPeer = nullptr;
    TNotifyEvent OnClick;
    TMeasureEvent OnMeasure;

protected:
    int FWide = 1;
};

const TClassInfo& TFigure::StaticClass() {
    static const TClassInfo info = DescribeClass<TFigure>(
        u"TFigure", TComponent::StaticClass(),
        {Property<&TFigure::FCount, &TFigure::FCount>(u"Count", 0),
         Property<&TFigure::FBig, &TFigure::FBig>(u"Big", 5),
         Property<&TFigure::FSmall, &TFigure::FSmall>(u"Small", 7),
         Property<&TFigure::FLevel, &TFigure::FLevel>(u"Level", 10).Named(IdentifiersOf<Levels>()),
         Property<&TFigure::FActive, &TFigure::FActive>(u"Active", true),
         Property<&TFigure::FShape, &TFigure::SetShape>(u"Shape", stRound),
         Property<&TFigure::FShapes, &TFigure::FShapes>(u"Shapes", {stRound, stOblong}),
         Property<&TFigure::FRatio, &TFigure::FRatio>(u"Ratio"),
         Property<&TFigure::FPrice, &TFigure::FPrice>(u"Price"),
         Property<&TFigure::FTitle, &TFigure::FTitle>(u"Title").StoredWhen<&TFigure::IsTitleStored>(),
         Property<&TFigure::FMark, &TFigure::FMark>(u"Mark", u'\0'),
         Property<&TFigure::FData, &TFigure::FData>(u"Data"),
         Property<&TFigure::FLines, &TFigure::FLines>(u"Lines"),
         Property<&TFigure::FBytes, &TFigure::FBytes>(u"Bytes"),
         Property<&TFigure::FPen>(u"Pen"),
         Property<&TFigure::FPeer, &TFigure::FPeer>(u"Peer"),
         Property<&TFigure::GetArea>(u"Area"),
         Property<&TFigure::GetWide, &TFigure::SetWide>(u"Wide"),
         Event<&TFigure::OnClick>(u"OnClick"),
         Event<&TFigure::OnMeasure>(u"OnMeasure")});
    return info;
}

// A descendant with other defaults, one row fewer in storage, and methods for events.
class TBigFigure : public TFigure {
    FRAMEWORK_CLASS(TBigFigure)

public:
    explicit TBigFigure(TComponent* owner) : TFigure(owner) { FWide = 100; }

    void FigureClick(TObject*) { ++Clicks; }
    void FigureMeasure(TObject*, int& width) { width += 5; }
    int Clicks = 0;
};

const TClassInfo& TBigFigure::StaticClass() {
    static const TClassInfo info = DescribeClass<TBigFigure>(
        u"TBigFigure", TFigure::StaticClass(),
        {Property<&TFigure::GetWide, &TFigure::SetWide>(u"wide", 100),
         Property<&TFigure::FCount, &TFigure::FCount>(u"Count", 0).NotStored()},
        {Method<&TBigFigure::FigureClick>(u"FigureClick"), Method<&TBigFigure::FigureMeasure>(u"FigureMeasure")});
    return info;
}

std::string Problem(const std::function<void()>& action) {
    try {
        action();
    } catch (const EPropertyError& error) {
        return error.what();
    }
    return "none";
}

std::string StoredNames(const TPersistent& object) {
    std::string names;
    for (const TPropInfo& row : object.ClassInfo().Properties()) {
        if (IsStoredProp(object, row))
            names += (names.empty() ? "" : " ") + Utf8Encode(row.Name);
    }
    return names;
}

TEST(Published, DescendantsReplaceRowsInTheirPlaces) {
    std::string names;
    for (const TPropInfo& row : TBigFigure::StaticClass().Properties())
        names += Utf8Encode(row.Name) + " ";
    EXPECT_EQ(names, "Name Tag Left Top Count Big Small Level Active Shape Shapes Ratio Price Title Mark Data Lines "
                     "Bytes Pen Peer Area wide OnClick OnMeasure ");
    EXPECT_EQ(TBigFigure::StaticClass().FindProperty(u"WIDE")->DefaultOrdinal, 100);
    EXPECT_EQ(TFigure::StaticClass().FindProperty(u"Wide")->DefaultOrdinal, std::nullopt);
    EXPECT_FALSE(IsPublishedProp(TPenStyle(), u"Wide"));
}

TEST(Published, StoresWhatDiffersFromAFreshObject) {
    TFigure figure(nullptr);
    EXPECT_EQ(StoredNames(figure), "Pen Wide"); // a sub-object decides itself; no default means always
    TBigFigure big(nullptr);
    EXPECT_EQ(StoredNames(big), "Pen");

    figure.FCount = 1;
    figure.FActive = false;
    figure.FShapes = {stSquare};
    figure.FRatio = 0.5;
    figure.FPrice = Currency::FromUnits(1);
    figure.FTitle = u"";
    figure.FMark = u'*';
    figure.FData = Variant(0);
    figure.FLines = {u""};
    figure.FBytes = {0};
    figure.FPeer = &big;
    EXPECT_EQ(StoredNames(figure), "Count Active Shapes Ratio Price Title Mark Data Lines Bytes Pen Peer Wide");
    big.FCount = 1; // readable, never written
    EXPECT_EQ(StoredNames(big), "Pen");
}

struct TValueCase {
    const char16_t* Property;
    Variant Value;
    const char* Result; ///< the value read back as text, or the refusal
};

TEST(Published, TakesValuesByNameAndRefusesOthers) {
    const TValueCase cases[] = {
        {u"count", Variant(3), "3"},
        {u"Count", Variant(u"-17"), "-17"},
        {u"Count", Variant(u"$FF"), "255"},
        {u"Count", Variant(INT64_C(2147483648)), "TFigure.Count: 2147483648 is out of range"},
        {u"Count", Variant(u"ten"), "TFigure.Count: \"ten\" is not a value of the property"},
        {u"Count", Null(), "TFigure.Count: Cannot convert Null to an integer"},
        {u"Big", Variant(INT64_MIN), "-9223372036854775808"},
        {u"Small", Variant(255), "255"},
        {u"Small", Variant(256), "TFigure.Small: 256 is out of range"},
        {u"Level", Variant(u"LVHIGH"), "20"},
        {u"Level", Variant(u"lvDefault"), "10"},
        {u"Level", Variant(u"33"), "33"},
        {u"Active", Variant(u"false"), "False"},
        {u"Active", Variant(true), "True"},
        {u"Active", Variant(2), "TFigure.Active: 2 is out of range"},
        {u"Shape", Variant(u"stsquare"), "stSquare"},
        {u"Shape", Variant(-1), "TFigure.Shape: -1 is out of range"},
        {u"Shape", Variant(u""), "TFigure.Shape: \"\" is not a value of the property"},
        {u"Shapes", Variant(u"[stOblong, stSquare]"), "[stSquare,stOblong]"},
        {u"Shapes", Variant(u"[]"), "[]"},
        {u"Shapes", Variant(5), "[stRound,stOblong]"},
        {u"Shapes", Variant(8), "TFigure.Shapes: 8 is out of range"},
        {u"Shapes", Variant(u"[stRound,]x"), "TFigure.Shapes: \"[stRound,]x\" is not a value of the property"},
        {u"Ratio", Variant(0.25), "0.25"},
        {u"Ratio", Variant(3), "3"},
        {u"Price", Variant(Currency::FromUnits(12345)), "1.2345"},
        {u"Title", Variant(15), "15"},
        {u"Mark", Variant(u"*"), "*"},
        {u"Mark", Variant(65), "A"},
        {u"Mark", Variant(u"ab"), "TFigure.Mark: \"ab\" is not a value of the property"},
        {u"Area", Variant(1), "TFigure.Area: the property is read-only"},
        {u"Pen", Variant(1), "TFigure.Pen: the property has no plain value"},
        {u"Colour", Variant(1), "TFigure.Colour: there is no such published property"},
    };
    TFormatSettings settings = FormatSettings();
    settings.DecimalSeparator = u'.';
    for (const TValueCase& each : cases) {
        TFigure figure(nullptr);
        std::string result = Problem([&] { SetPropValue(figure, each.Property, each.Value); });
        if (result == "none")
            result = Utf8Encode(GetPropValue(figure, each.Property).AsString(settings));
        EXPECT_EQ(result, each.Result) << Utf8Encode(each.Property);
    }
    TFigure figure(nullptr);
    EXPECT_THROW(SetPropValue(figure, u"Shape", u"stOblong"), EInvalidOperation); // the setter's own word
    EXPECT_NE(Problem([&] { SetPropValue(figure, u"Ratio", u"wide"); }), "none");
    EXPECT_EQ(GetPropValue(figure, u"Shapes", false), Variant(5));
    EXPECT_EQ(Problem([&] { GetOrdProp(figure, u"Title"); }), "TFigure.Title: the property has no ordinal value");
    SetOrdProp(figure, u"Shapes", 2);
    EXPECT_EQ(GetOrdProp(figure, u"Shapes"), 2);
}

TEST(Published, LinksObjectsOfTheDeclaredClass) {
    TFigure figure(nullptr);
    TBigFigure big(nullptr);
    TComponent plain(nullptr);
    SetObjectProp(figure, u"Peer", &big);
    EXPECT_EQ(GetObjectProp(figure, u"Peer"), &big);
    EXPECT_EQ(Problem([&] { SetObjectProp(figure, u"Peer", &plain); }), "TFigure.Peer: a TComponent is not a TFigure");
    EXPECT_EQ(Problem([&] { SetObjectProp(figure, u"Pen", figure.FPen.get()); }),
              "TFigure.Pen: the property is read-only");
    EXPECT_EQ(Problem([&] { GetObjectProp(figure, u"Count"); }), "TFigure.Count: the property is not an object");
    SetObjectProp(figure, u"Peer", nullptr);
    EXPECT_EQ(figure.FPeer, nullptr);

    const TPropInfo& peer = GetPropInfo(figure, u"Peer");
    EXPECT_TRUE(IsSubObject(figure, GetPropInfo(figure, u"Pen")));
    EXPECT_FALSE(IsSubObject(figure, peer));
    figure.FPeer = new TFigure(&figure);
    EXPECT_FALSE(IsSubObject(figure, peer));
    figure.FPeer->SetSubComponent(true);
    EXPECT_TRUE(IsSubObject(figure, peer));
}

TEST(Published, BindsEventsToMethodsAndKnowsTheirNames) {
    TFigure figure(nullptr);
    TBigFigure form(nullptr);
    SetMethodProp(figure, u"onclick", &form, u"FIGURECLICK");
    SetMethodProp(figure, u"OnMeasure", &form, u"FigureMeasure");
    figure.OnClick(&figure);
    int width = 10;
    figure.OnMeasure(&figure, width);
    EXPECT_EQ(form.Clicks, 1);
    EXPECT_EQ(width, 15);
    EXPECT_EQ(GetMethodProp(figure, u"OnClick"), u"FigureClick");
    EXPECT_EQ(GetPropInfo(figure, u"OnClick").GetMethodInstance(figure), &form);

    EXPECT_EQ(Problem([&] { SetMethodProp(figure, u"OnClick", &form, u"FigureMeasure"); }),
              "TFigure.OnClick: the method FigureMeasure has other parameters than the event");
    EXPECT_EQ(Problem([&] { SetMethodProp(figure, u"OnClick", &form, u"Nothing"); }),
              "TFigure.OnClick: there is no published method \"Nothing\"");
    EXPECT_EQ(Problem([&] { SetMethodProp(figure, u"Count", &form, u"FigureClick"); }),
              "TFigure.Count: the property is not an event");
    EXPECT_EQ(GetMethodProp(figure, u"OnClick"), u"FigureClick");

    const TPropInfo& click = GetPropInfo(figure, u"OnClick");
    EXPECT_TRUE(IsStoredProp(figure, click));
    figure.OnClick = [](TObject*) {}; // a handler without a name cannot be stored
    EXPECT_EQ(GetMethodProp(figure, u"OnClick"), u"");
    EXPECT_TRUE(click.IsAssigned(figure));
    EXPECT_EQ(&EventHandler<TNotifyEvent>(figure, click), &figure.OnClick);
    EXPECT_EQ(Problem([&] { EventHandler<TNotifyEvent>(figure, GetPropInfo(figure, u"OnMeasure")); }),
              "TFigure.OnMeasure: the property is not an event of this signature");
    EXPECT_FALSE(IsStoredProp(figure, click));
    SetMethodProp(figure, u"OnClick", nullptr, u"");
    EXPECT_FALSE(figure.OnClick);
}

TEST(Published, AssignsOnlyAmongKin) {
    TPenStyle pen;
    TFigure figure(nullptr);
    try {
        pen.Assign(&figure);
        FAIL();
    } catch (const EConvertError& error) {
        EXPECT_STREQ(error.what(), "Cannot assign a TFigure to a TPenStyle");
    }
    EXPECT_THROW(pen.Assign(nullptr), EConvertError);
}

} // namespace
