#include "gallery/handlers_rules.h"
#include "gallery/inspector_rules.h"

#include "framework/system/stringlist.h"
#include "framework/system/strings.h"

#include <gtest/gtest.h>

#include <memory>

namespace gallery {

enum TFlavour { flSweet, flSour, flBitter };

const TEnumInfo& DescribeEnum(TFlavour) {
    static const TEnumInfo info{u"TFlavour", {u"flSweet", u"flSour", u"flBitter"}};
    return info;
}

namespace {

const TIdentifiers& ColorNames() {
    static const TIdentifiers names{[](std::int64_t value) -> std::optional<String> {
                                        return value == 255 ? std::optional(u"clRed") : std::nullopt;
                                    },
                                    [](StringView name) -> std::optional<std::int64_t> {
                                        return SameText(name, u"clRed")      ? std::optional<std::int64_t>(255)
                                               : SameText(name, u"clWindow") ? std::optional<std::int64_t>(-16777211)
                                                                             : std::nullopt;
                                    },
                                    [] {
                                        return std::vector<String>{u"clRed", u"clWindow"};
                                    }};
    return names;
}

class TPart : public TPersistent {
    FRAMEWORK_CLASS(TPart)

public:
    int FSize = 8;
    int FColor = 255;
    Set<TFlavour> FFlavours;
};

const TClassInfo& TPart::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TPart>(u"TPart", TPersistent::StaticClass(),
                             {Property<&TPart::FSize, &TPart::FSize>(u"Size", 8),
                              Property<&TPart::FColor, &TPart::FColor>(u"Color").Named(ColorNames()),
                              Property<&TPart::FFlavours, &TPart::FFlavours>(u"Flavours", {})});
    return info;
}

class TThing : public TComponent {
    FRAMEWORK_CLASS(TThing)

public:
    explicit TThing(TComponent* owner) : TComponent(owner) {}

    int GetLevel() const { return FLevel; }
    void SetLevel(int value) {
        if (value > 10)
            throw EInvalidOperation(u"Too high");
        FLevel = value;
    }
    TPart* GetPart() const { return FPart.get(); }
    TThing* GetFriend() const { return FFriend; }
    void SetFriend(TThing* value) { FFriend = value; }
    int GetFixed() const { return 3; }

    TNotifyEvent OnChange;
    std::function<void(int)> OnCount;
    String FText = u"abc";
    double FWeight = 1.5;
    TDateTime FDue = 0;
    char16_t FMark = u'*';
    TFlavour FFlavour = flSour;

private:
    int FLevel = 1;
    std::unique_ptr<TPart> FPart = std::make_unique<TPart>();
    TThing* FFriend = nullptr;
};

const TClassInfo& TThing::StaticClass() {
    static const TClassInfo info = DescribeClass<TThing>(
        u"TThing", TComponent::StaticClass(),
        {Property<&TThing::FText, &TThing::FText>(u"Text"), Property<&TThing::GetLevel, &TThing::SetLevel>(u"Level", 1),
         Property<&TThing::FWeight, &TThing::FWeight>(u"Weight"),
         Property<&TThing::FDue, &TThing::FDue>(u"Due").Dated(TFloatKind::DateTime),
         Property<&TThing::FMark, &TThing::FMark>(u"Mark"),
         Property<&TThing::FFlavour, &TThing::FFlavour>(u"Flavour", flSweet),
         Property<&TThing::GetFriend, &TThing::SetFriend>(u"Friend"), Property<&TThing::GetPart>(u"Part"),
         Property<&TThing::GetFixed>(u"Fixed"), Event<&TThing::OnChange>(u"OnChange"),
         Event<&TThing::OnCount>(u"OnCount")});
    return info;
}

class TBox : public TComponent {
    FRAMEWORK_CLASS(TBox)

public:
    TBox() : TComponent(nullptr) {}
    void ThingChange(TObject*) { ++FChanges; }
    void OtherChange(TObject*) {}
    void Counted(int) {}
    int FChanges = 0;
};

const TClassInfo& TBox::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TBox>(u"TBox", TComponent::StaticClass(), {},
                            {Method<&TBox::ThingChange>(u"ThingChange"), Method<&TBox::OtherChange>(u"OtherChange"),
                             Method<&TBox::Counted>(u"Counted")});
    return info;
}

class TCell : public TCollectionItem {
    FRAMEWORK_CLASS(TCell)

public:
    explicit TCell(TCollection* collection) : TCollectionItem(collection) {}
};

const TClassInfo& TCell::StaticClass() {
    static const TClassInfo info = DescribeClass<TCell>(u"TCell", TCollectionItem::StaticClass());
    return info;
}

/// Holds what a line of the inspector cannot show.
class TTable : public TComponent {
    FRAMEWORK_CLASS(TTable)

public:
    TTable() : TComponent(nullptr) {}
    TStrings* GetItems() const { return FItems.get(); }
    void SetItems(TStrings* value) { FItems->Assign(value); }
    TCollection* GetCells() const { return FCells.get(); }

private:
    std::unique_ptr<TStringList> FItems = std::make_unique<TStringList>();
    std::unique_ptr<TOwnedCollection> FCells = std::make_unique<TOwnedCollection>(this, ItemsOf<TCell>());
};

const TClassInfo& TTable::StaticClass() {
    static const TClassInfo info = DescribeClass<TTable>(u"TTable", TComponent::StaticClass(),
                                                         {Property<&TTable::GetItems, &TTable::SetItems>(u"Items"),
                                                          Property<&TTable::GetCells>(u"Cells"),
                                                          Property<&TTable::GetCells>(u"Remains").NotStored()});
    return info;
}

/// A form that is being designed, which forgets its class each time that it gets another one.
class TDesignedBox : public TComponent, public THandlerTaker {
public:
    TDesignedBox() : TComponent(nullptr) { TakeHandlers({}); }
    const TClassInfo& ClassInfo() const override { return *FInfos.back(); }
    void TakeHandlers(const std::vector<THandler>& handlers) override {
        std::vector<TMethodInfo> methods;
        for (const THandler& handler : handlers)
            methods.push_back({handler.Name, handler.Signature, nullptr});
        FInfos.push_back(std::make_unique<TClassInfo>(u"TDesignedBox", &TComponent::StaticClass(),
                                                      std::vector<TPropInfo>(), methods, std::vector<TFieldInfo>(),
                                                      nullptr));
    }

private:
    std::vector<std::unique_ptr<TClassInfo>> FInfos;
};

class Inspector : public testing::Test {
protected:
    Inspector() : Thing(&Box), Other(&Box) {
        Thing.SetName(u"Thing");
        Other.SetName(u"Other");
    }

    TInspectorRow Row(StringView path) {
        const auto row = FindRow(Thing, path);
        EXPECT_TRUE(row) << Utf8Encode(path);
        return row.value_or(TInspectorRow{});
    }
    String Write(StringView path, StringView text) {
        WriteRow(Row(path), text);
        return RowText(Row(path));
    }
    std::string Lines(const TInspectorTree& tree) {
        std::string lines;
        for (const TInspectorRow& row : tree.Rows())
            lines += std::string(static_cast<std::size_t>(row.Level), ' ') +
                     (row.Expandable ? row.Expanded ? "-" : "+" : "") + Utf8Encode(row.Name) + "\n";
        return lines;
    }

    TBox Box;
    TThing Thing;
    TThing Other;
};

TEST_F(Inspector, ListsPropertiesByNameAndKeepsOpenWhatWasOpened) {
    TInspectorTree tree;
    tree.SetRoot(&Thing);
    EXPECT_EQ(Lines(tree),
              "Due\nFixed\nFlavour\nFriend\nLeft\nLevel\nMark\nName\n+Part\nTag\nText\nTop\nWeight\n+Events\n");
    ASSERT_TRUE(tree.Toggle(*tree.IndexOf(u"Part")));
    ASSERT_TRUE(tree.Toggle(*tree.IndexOf(u"part.flavours")));
    EXPECT_FALSE(tree.Toggle(*tree.IndexOf(u"Level")));
    const std::string open =
        "Due\nFixed\nFlavour\nFriend\nLeft\nLevel\nMark\nName\n-Part\n Color\n -Flavours\n  flSweet\n  flSour\n"
        "  flBitter\n Size\nTag\nText\nTop\nWeight\n+Events\n";
    EXPECT_EQ(Lines(tree), open);
    EXPECT_FALSE(tree.Rebuild()) << "nothing changed";
    tree.SetRoot(&Other);
    EXPECT_EQ(Lines(tree), open);
    ASSERT_TRUE(tree.SetExpanded(*tree.IndexOf(u"Part"), false));
    ASSERT_TRUE(tree.SetExpanded(tree.Rows().size() - 1, true));
    EXPECT_EQ(Lines(tree),
              "Due\nFixed\nFlavour\nFriend\nLeft\nLevel\nMark\nName\n+Part\nTag\nText\nTop\nWeight\n-Events\n"
              " OnChange\n OnCount\n");
    tree.SetRoot(nullptr);
    EXPECT_TRUE(tree.Rows().empty());
}

TEST_F(Inspector, ShowsAndWritesValuesOfEveryKind) {
    const struct {
        const char16_t* Path;
        const char16_t* Before;
        TRowEditor Editor;
        const char16_t* Written;
        const char16_t* After;
    } rows[] = {
        {u"Text", u"abc", TRowEditor::Text, u"\u017C\u00F3\u0142w", u"\u017C\u00F3\u0142w"},
        {u"Level", u"1", TRowEditor::Text, u"7", u"7"},
        {u"Weight", u"1.5", TRowEditor::Text, u"0.25", u"0.25"},
        {u"Due", u"", TRowEditor::Text, u"2/29/2024 18:00", u"02/29/2024 18:00:00"},
        {u"Due", u"02/29/2024 18:00:00", TRowEditor::Text, u"1.5", u"12/31/1899 12:00:00"},
        {u"Due", u"12/31/1899 12:00:00", TRowEditor::Text, u"", u""},
        {u"Mark", u"*", TRowEditor::Text, u"x", u"x"},
        {u"Mark", u"x", TRowEditor::Text, u"#9", u"#9"},
        {u"Mark", u"#9", TRowEditor::Text, u"", u""},
        {u"Flavour", u"flSour", TRowEditor::Choice, u"flbitter", u"flBitter"},
        {u"Friend", u"", TRowEditor::Choice, u"other", u"Other"},
        {u"Friend", u"Other", TRowEditor::Choice, u"", u""},
        {u"Part.Color", u"clRed", TRowEditor::TextOrChoice, u"$DD9746", u"$00DD9746"},
        {u"Part.Flavours", u"[]", TRowEditor::Text, u"[flSour,flSweet]", u"[flSweet,flSour]"},
        {u"Part.Flavours.flSweet", u"True", TRowEditor::Choice, u"False", u"False"},
        {u"Part.Flavours", u"[flSour]", TRowEditor::Text, u"", u"[]"},
        {u"OnChange", u"", TRowEditor::Choice, u"ThingChange", u"ThingChange"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(RowText(Row(row.Path)), row.Before) << Utf8Encode(row.Path);
        EXPECT_EQ(RowEditor(Row(row.Path)), row.Editor) << Utf8Encode(row.Path);
        EXPECT_EQ(Write(row.Path, row.Written), row.After) << Utf8Encode(row.Path);
    }
    Thing.OnChange(&Thing);
    EXPECT_EQ(Box.FChanges, 1);
    EXPECT_EQ(RowText(Row(u"Part")), u"(TPart)");
    EXPECT_EQ(RowEditor(Row(u"Part")), TRowEditor::None);
    EXPECT_EQ(RowEditor(Row(u"Fixed")), TRowEditor::None);
    Thing.FText = u"two\nlines";
    EXPECT_EQ(RowEditor(Row(u"Text")), TRowEditor::Lines) << "one line could not show them";
    EXPECT_EQ(RowLines(Row(u"Text")), u"two\nlines");
    EXPECT_FALSE(FindRow(Thing, u"Part.None") || FindRow(Thing, u"None") || FindRow(Thing, u"Level.Size") ||
                 FindRow(Thing, u"Part.Flavours.flSalty"));
}

TEST_F(Inspector, LeavesTheValueWhenItIsRefused) {
    EXPECT_THROW(Write(u"Level", u"11"), EInvalidOperation) << "the setter's own word";
    EXPECT_THROW(Write(u"Level", u"abc"), EPropertyError);
    EXPECT_THROW(Write(u"Flavour", u"flSalty"), EPropertyError);
    EXPECT_THROW(Write(u"Friend", u"Nobody"), EPropertyError);
    EXPECT_THROW(Write(u"Part.Flavours.flSour", u"perhaps"), EPropertyError);
    EXPECT_THROW(Write(u"OnCount", u"ThingChange"), EPropertyError) << "other parameters";
    EXPECT_THROW(WriteRow(TInspectorRow{}, u""), EPropertyError) << "a heading";
    EXPECT_EQ(Thing.GetLevel(), 1);
    EXPECT_EQ(Thing.FFlavour, flSour);
    EXPECT_EQ(Thing.GetFriend(), nullptr);
    EXPECT_FALSE(Thing.OnCount);
}

TEST_F(Inspector, OffersWhatFits) {
    EXPECT_EQ(RowChoices(Row(u"Friend")), (std::vector<String>{u"", u"Other", u"Thing"}));
    EXPECT_EQ(RowChoices(Row(u"OnChange")), (std::vector<String>{u"", u"ThingChange", u"OtherChange"}));
    EXPECT_EQ(RowChoices(Row(u"OnCount")), (std::vector<String>{u"", u"Counted"}));
    EXPECT_EQ(NextChoice(Row(u"Flavour")), u"flBitter");
    Thing.FFlavour = flBitter;
    EXPECT_EQ(NextChoice(Row(u"Flavour")), u"flSweet") << "going round";
    EXPECT_EQ(NextChoice(Row(u"Level")), u"");
}

TEST_F(Inspector, TellsColoursAndModifiedValues) {
    EXPECT_EQ(RowColor(Row(u"Part.Color")), 255);
    EXPECT_FALSE(RowColor(Row(u"Level")));
    EXPECT_FALSE(RowModified(Row(u"Level")));
    EXPECT_TRUE(RowModified(Row(u"Flavour")));
    Thing.GetPart()->FFlavours = {flSour};
    EXPECT_TRUE(RowModified(Row(u"Part.Flavours.flSour")));
    EXPECT_FALSE(RowModified(Row(u"Part.Flavours.flSweet")));
}

TEST(ListInspector, HandsOutWholeTextsAndCollections) {
    TTable table;
    const auto row = [&](StringView path) { return *FindRow(table, path); };
    const struct {
        const char16_t* Written;
        const char16_t* Shown;
        const char16_t* Lines;
    } rows[] = {
        {u"a\r\n\r\nb", u"(3 lines)", u"a\r\n\r\nb"},
        {u"a\r\n", u"(1 line)", u"a"},
        {u"a\r\n\r\n", u"(2 lines)", u"a\r\n\r\n"},
        {u"\r\n", u"(1 line)", u"\r\n"},
        {u"", u"(0 lines)", u""},
    };
    for (const auto& each : rows) {
        WriteRow(row(u"Items"), each.Written);
        EXPECT_EQ(RowText(row(u"Items")), each.Shown);
        EXPECT_EQ(RowLines(row(u"Items")), each.Lines);
        WriteRow(row(u"Items"), *RowLines(row(u"Items")));
        EXPECT_EQ(RowLines(row(u"Items")), each.Lines) << "unchanged by going through the window";
    }
    EXPECT_EQ(RowEditor(row(u"Items")), TRowEditor::Lines);
    EXPECT_EQ(RowLines(row(u"Tag")), std::nullopt);
    table.GetCells()->Add();
    EXPECT_EQ(RowText(row(u"Cells")), u"(1 item)");
    EXPECT_EQ(RowEditor(row(u"Cells")), TRowEditor::Items);
    EXPECT_EQ(RowItems(row(u"Cells")), table.GetCells());
    EXPECT_EQ(RowEditor(row(u"Remains")), TRowEditor::None) << "no form would keep them";
    TInspectorTree tree;
    tree.SetRoot(&table);
    for (const TInspectorRow& each : tree.Rows())
        EXPECT_FALSE(each.Expandable) << Utf8Encode(each.Path);
}

TEST(DesignedInspector, NamesHandlersThatAreNotThereYet) {
    TDesignedBox box;
    TThing thing(&box);
    TThing nameless(&box);
    thing.SetName(u"Thing");
    const auto row = [](TThing& of, StringView event) { return *FindRow(of, event); };
    const auto names = [&] {
        String all;
        for (const THandler& handler : HandlersOf(box))
            all += handler.Name + u" ";
        return all;
    };
    EXPECT_EQ(RowEditor(row(thing, u"OnChange")), TRowEditor::TextOrChoice);
    EXPECT_EQ(ProposedText(row(thing, u"OnChange")), u"ThingChange");
    EXPECT_EQ(ProposedText(row(nameless, u"OnCount")), u"ThingCount") << "by the class";
    const TPropInfo& change = *row(thing, u"OnChange").Property;

    WriteRow(row(thing, u"OnChange"), u" Checked ");
    WriteRow(row(nameless, u"OnChange"), u"CHECKED");
    WriteRow(row(thing, u"OnCount"), u"ThingChange");
    EXPECT_EQ(RowText(row(nameless, u"OnChange")), u"Checked") << "the handler that is there";
    EXPECT_EQ(ProposedText(row(thing, u"OnChange")), u"Checked") << "what it has";
    EXPECT_EQ(UsualHandler(thing, change), u"ThingChange2") << "the name has another signature";
    EXPECT_EQ(RowChoices(row(thing, u"OnCount")), (std::vector<String>{u"", u"ThingChange"}));

    for (const char16_t* bad : {u"1st", u"a b", u"a.b", u"thing", u"ThingChange"})
        EXPECT_THROW(WriteRow(row(nameless, u"OnChange"), bad), EPropertyError) << Utf8Encode(bad);
    EXPECT_EQ(RowText(row(nameless, u"OnChange")), u"Checked");
    EXPECT_EQ(names(), u"Checked ThingChange ");

    // A name without an event is free again.
    WriteRow(row(thing, u"OnCount"), u"");
    WriteRow(row(thing, u"OnChange"), u"ThingChange");
    EXPECT_EQ(names(), u"Checked ThingChange ");
    WriteRow(row(nameless, u"OnChange"), u"");
    EXPECT_EQ(names(), u"ThingChange ");
}

} // namespace
} // namespace gallery
