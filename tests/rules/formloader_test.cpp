// Loading and saving of text forms with the classes of the zoo: values, paths, events, faults with their places, deaths
// in handlers, and that what was saved loads to the same.

#include "tests/support/zooforms.h"

using namespace framework;
using namespace testsupport;

namespace {

// Everything that can be saved, in the order and layout in which it is.
constexpr char fullForm[] = R"(object Form1: TZooForm
  Tag = -1
  Left = 5
  Top = 0
  Caption = 'It''s a '#26825
  Modes = [zmPlain, zmCold]
  OnClick = BoxClick
  object Group: TZooBox
    Left = 1
    Top = 2
    Width = 30
    HasLabel = True
    Mode = zmWarm
    Visible = False
    Ratio = 0.100000000000000000
    Price = 12.340000000000000000c
    Data = 'text'
    Mark = '*'
    Picture = {00FF10}
    Font.Color = clRed
    Font.Name = 'Tahoma'
    Font.Size = -11
    Items.Strings = (
      'one'
      'two')
    Columns = <
      item
        Title = 'First'
        Font.Size = 20
        Parts = <
          item
            Title = 'Inner'
            Width = 11
            Link = Later
            Parts = <>
          end>
      end
      item
        Link = Form1
        Parts = <>
      end>
    BoundLabel.Left = 3
    BoundLabel.Top = 4
    BoundLabel.Caption = 'label'
    BoundLabel.Columns = <>
    BoundLabel.Peer = Group
    Peer = Later
    object Inside: TZooBox
      Left = 0
      Top = 0
      Columns = <>
      Peer = Group
      OnMeasure = BoxMeasure
      object TZooBox
        Left = 0
        Top = 0
        Columns = <>
      end
    end
  end
  object Later: TZooBox
    Left = 0
    Top = 0
    Data = 45000.500000000000000000d
    Columns = <>
  end
  object Clock: TZooTimer
    Interval = 50
    OnTimer = BoxClick
    Left = 16
    Top = 24
  end
end
)";

TEST_F(Forms, SetEverythingTheyName) {
    const auto form = Load(fullForm);
    TZooBox* group = Box(*form, u"Group");
    EXPECT_EQ(form->GetTag(), -1);
    EXPECT_EQ(form->GetCaption(), u"It's a \u68C9");
    EXPECT_EQ(group->FPrice, Currency::FromUnits(123400));
    EXPECT_EQ(VarType(Box(*form, u"Later")->FData), varDate);
    EXPECT_EQ(group->FMark, u'*');
    EXPECT_EQ(group->FFont->FColor, 0xFF);
    EXPECT_EQ(group->FItems->GetTextStr(), u"one\r\ntwo\r\n");
    EXPECT_EQ(group->GetLabel()->GetCaption(), u"label");
    EXPECT_EQ(group->GetLabel()->GetPeer(), group);
    EXPECT_EQ(group->GetPeer(), Box(*form, u"Later")); // a reference to what comes later
    const auto* first = As<TZooItem>(group->FColumns->GetItem(0));
    EXPECT_EQ(As<TZooItem>(first->FParts->GetItem(0))->FLink, Box(*form, u"Later"));

    TZooBox* inside = Box(*form, u"Inside");
    EXPECT_EQ(inside->GetOwner(), form.get());
    EXPECT_EQ(inside->GetParentComponent(), group);
    int size = 21;
    inside->OnMeasure(inside, size);
    EXPECT_EQ(size, 42);
    EXPECT_EQ(form->FindComponent(u"Clock")->GetDesignTop(), 24);
    for (int i = 0; i < form->GetComponentCount(); ++i) {
        const TComponentState state = form->GetComponent(i)->GetComponentState();
        EXPECT_FALSE(state.Contains(csLoading) || state.Contains(csReading)) << i;
    }
}

TEST_F(Forms, AreSavedAsTheyWereLoaded) {
    const auto form = Load(fullForm);
    // The form's own collection is empty but always there.
    std::string expected = fullForm;
    expected.insert(expected.find("  OnClick"), "  Columns = <>\n");
    EXPECT_EQ(Saved(*form), expected);
    const auto again = Load(expected);
    EXPECT_EQ(Saved(*again), expected);
    EXPECT_FALSE(again->GetComponentState().Contains(csWriting));
}

TEST_F(Forms, TellEachComponentThatItIsLoadedInTheOrderOfCreation) {
    const auto form = Load("object Form1: TZooForm\n"
                           "  object A: TZooBox\n"
                           "    Peer = B\n"
                           "    object B: TZooBox\n"
                           "      Caption = 'x'\n"
                           "    end\n"
                           "  end\n"
                           "  object C: TZooBox\n"
                           "  end\n"
                           "end\n");
    EXPECT_EQ(TakeLog(), "updating TZooForm, updating TZooBox, updating TZooBox, updating TZooBox, "
                         "loaded Form1, loaded A, loaded B, loaded C");
}

struct TFaultCase {
    const char* Name;
    const char* Body; ///< of the box whose properties begin in line 3, column 5
    const char* Fault;
};

constexpr TFaultCase faultCases[] = {
    {"unknown property", "Colour = 1", "zoo.dfm(3,5): Box1.Colour: a TZooBox has no published property Colour"},
    {"unknown sub-property", "Font.Colour = 1",
     "zoo.dfm(3,5): Box1.Font.Colour: a TZooFont has no published property Colour"},
    {"path through a number", "Width.Size = 1", "zoo.dfm(3,5): Box1.Width.Size: Width is no object"},
    {"path through nothing", "Peer.Width = 1", "zoo.dfm(3,5): Box1.Peer.Width: there is no object Peer"},
    {"unknown enumerator", "Mode = zmHot", "zoo.dfm(3,5): Box1.Mode: \"zmHot\" is not a value of the property"},
    {"number for an enumeration", "Mode = 1", "zoo.dfm(3,5): Box1.Mode: a name of TZooMode is expected"},
    {"unknown element", "Modes = [zmWarm,\n zmHot]",
     "zoo.dfm(4,2): Box1.Modes: \"zmHot\" is not a value of the property"},
    {"element beyond the set", "Modes = [3]", "zoo.dfm(3,14): Box1.Modes: 3 is out of range"},
    {"name for a set", "Modes = zmWarm", "zoo.dfm(3,5): Box1.Modes: a set of TZooMode is expected"},
    {"text for a number", "Width = '1'", "zoo.dfm(3,5): Box1.Width: an integer is expected"},
    {"float for an integer", "Width = 5.000", "zoo.dfm(3,5): Box1.Width: an integer is expected"},
    {"beyond 32 bits", "Width = 2147483648", "zoo.dfm(3,5): Box1.Width: 2147483648 is out of range"},
    {"beyond 8 bits", "Font.Size = 128", "zoo.dfm(3,5): Box1.Font.Size: 128 is out of range"},
    {"unknown colour", "Font.Color = clPlaid",
     "zoo.dfm(3,5): Box1.Font.Color: \"clPlaid\" is not a value of the property"},
    {"text for a float", "Ratio = 'x'", "zoo.dfm(3,5): Box1.Ratio: a number is expected"},
    {"money beyond its range", "Price = 1e15", "zoo.dfm(3,5): Box1.Price: "},
    {"identifier for a text", "Caption = Text", "zoo.dfm(3,5): Box1.Caption: a text is expected"},
    {"two characters", "Mark = 'ab'", "zoo.dfm(3,5): Box1.Mark: a text of one character is expected"},
    {"name in a variant", "Data = Something", "zoo.dfm(3,5): Box1.Data: \"Something\" is not a value of the property"},
    {"number among lines", "Items.Strings = ('a'\n 5)", "zoo.dfm(4,2): Box1.Items.Strings: a text is expected"},
    {"text for lines", "Items.Strings = 'a'", "zoo.dfm(3,5): Box1.Items.Strings: a list of texts is expected"},
    {"text for bytes", "Picture = 'a'", "zoo.dfm(3,5): Box1.Picture: a block of bytes is expected"},
    {"read-only", "Area = 1", "zoo.dfm(3,5): Box1.Area: the property is read-only"},
    {"setter that raises", "Caption = 'boom'", "zoo.dfm(3,5): Box1.Caption: the caption explodes"},
    {"items for an object", "Font = <>", "zoo.dfm(3,5): Box1.Font: the property is no collection"},
    {"number for a reference", "Peer = 1", "zoo.dfm(3,5): Box1.Peer: the name of a component is expected"},
    {"unknown component", "Peer = Nobody", "zoo.dfm(3,5): Box1.Peer: there is no component Nobody"},
    {"unknown part of a path", "Peer = Form1.Nobody", "zoo.dfm(3,5): Box1.Peer: there is no component Form1.Nobody"},
    {"component of another class", "Peer = Timer1", "zoo.dfm(3,5): Box1.Peer: a TZooTimer is not a TZooBox"},
    {"reference that is read-only", "Font = Timer1", "zoo.dfm(3,5): Box1.Font: the property is read-only"},
    {"nil for a sub-object", "Font = nil", "zoo.dfm(3,5): Box1.Font: the property always has an object"},
    {"unknown method", "OnClick = Nothing", "zoo.dfm(3,5): Box1.OnClick: there is no published method \"Nothing\""},
    {"method of other parameters", "OnClick = BoxMeasure",
     "zoo.dfm(3,5): Box1.OnClick: the method BoxMeasure has other parameters than the event"},
    {"text for a method", "OnClick = 'BoxClick'", "zoo.dfm(3,5): Box1.OnClick: the name of a method is expected"},
    {"item with a fault", "Columns = <item end item\nParts = <item Width = '1' end> end>",
     "zoo.dfm(4,15): Box1.Columns[1].Parts[0].Width: an integer is expected"},
    {"item with a lost reference", "Columns = <item\n Link = Nobody end>",
     "zoo.dfm(4,2): Box1.Columns[0].Link: there is no component Nobody"},
    {"unknown class", "object Strange: TStrange end", "zoo.dfm(3,5): Strange: Class TStrange not found"},
    {"class that cannot be created", "object Part: TZooPart end",
     "zoo.dfm(3,5): Part: A TZooPart cannot be created by name"},
    {"component that cannot be a child", "object Part: TZooTimer end",
     "zoo.dfm(3,5): Part: a TZooTimer has no place in a TZooBox"},
    {"inherited from nobody", "inherited Missing: TZooBox end",
     "zoo.dfm(3,5): Missing: the object is inherited, but Form1 has no such component"},
    {"Loaded that raises", "Caption = 'late'", "zoo.dfm(2,3): Box1: too late"},
};

class TZooPart : public TZooBox {
    FRAMEWORK_CLASS(TZooPart)
public:
    TZooPart() : TZooBox(nullptr) {}
};

const TClassInfo& TZooPart::StaticClass() {
    static const TClassInfo info = DescribeClass<TZooPart>(u"TZooPart", TZooBox::StaticClass());
    return info;
}

class TZooLate : public TZooForm {
    FRAMEWORK_CLASS(TZooLate)
public:
    using TZooForm::TZooForm;
    void BoxLoaded(TObject* sender) {
        if (static_cast<TZooBox*>(sender)->GetCaption() == u"late")
            throw EInvalidOperation(u"too late");
    }
};

const TClassInfo& TZooLate::StaticClass() {
    static const TClassInfo info =
        DescribeClass<TZooLate>(u"TZooLate", TZooForm::StaticClass(), {}, {Method<&TZooLate::BoxLoaded>(u"BoxLoaded")});
    return info;
}

TEST_F(Forms, TellWhereTheFaultIs) {
    RegisterClasses({&TZooPart::StaticClass(), &TZooLate::StaticClass()});
    for (const TFaultCase& each : faultCases) {
        const std::string text = "object Form1: TZooLate\n"
                                 "  object Box1: TZooBox\n"
                                 "    " +
                                 std::string(each.Body) +
                                 "\n  end\n"
                                 "  object Box2: TZooBox\n"
                                 "  end\n"
                                 "  object Timer1: TZooTimer\n"
                                 "  end\n"
                                 "end\n";
        std::string withEvent = text;
        if (std::string_view(each.Name) == "Loaded that raises")
            withEvent.replace(withEvent.find("\n  end"), 0, "\n OnLoaded = BoxLoaded");
        const std::string fault = Fault([&] { Load(withEvent); });
        EXPECT_EQ(fault.substr(0, std::string_view(each.Fault).size()), each.Fault) << each.Name;
        EXPECT_EQ(TZooBox::living, 0) << each.Name;
    }
    UnRegisterClasses({&TZooPart::StaticClass(), &TZooLate::StaticClass()});
}

TEST_F(Forms, KeepTheExceptionThatWasRaised) {
    try {
        Load("object Form1: TZooForm\n  object Box1: TZooBox\n    Caption = 'boom'\n  end\nend\n");
        FAIL();
    } catch (const EFormLoad& error) {
        EXPECT_EQ(error.FileName(), u"zoo.dfm");
        EXPECT_EQ(error.Line(), 3u);
        EXPECT_EQ(error.Column(), 5u);
        EXPECT_EQ(error.ObjectName(), u"Box1");
        EXPECT_EQ(error.PropertyName(), u"Caption");
        EXPECT_EQ(error.Problem(), u"Box1.Caption: the caption explodes");
        EXPECT_THROW(std::rethrow_if_nested(error), EInvalidOperation);
    }
    EXPECT_EQ(Fault([] { Load("object Form1: TStrange\nend\n"); }), "zoo.dfm(1,1): Form1: Class TStrange not found");
    EXPECT_EQ(Fault([] { Load("object Form1: TZooForm\n  Width = \nend\n"); }).substr(0, 8), "zoo.dfm(");
}

TEST_F(Forms, SkipWhatIsUnknownOnlyWhenAskedAndNeverSilently) {
    constexpr char text[] = "object Form1: TZooForm\n"
                            "  Colour = 1\n"
                            "  Font.Charset = DEFAULT_CHARSET\n"
                            "  Peer = Buried\n"
                            "  object Strange: TStrange\n"
                            "    Anything = <>\n"
                            "    object Buried: TZooBox\n"
                            "    end\n"
                            "  end\n"
                            "  object Box1: TZooBox\n"
                            "    Columns = <item Depth = 1 Width = 2 end>\n"
                            "  end\n"
                            "end\n";
    std::string skipped;
    TLoadOptions options;
    options.SkipUnknownProperties = true;
    options.SkipUnknownClasses = true;
    EXPECT_THROW(Load(text, options), EInvalidOperation);
    options.OnSkipped = [&](const TSkippedPart& part) {
        skipped += std::to_string(part.Line) + "," + std::to_string(part.Column) + " " + Utf8Encode(part.Object) + ":" +
                   Utf8Encode(part.ClassName) + (part.Property.empty() ? "" : "." + Utf8Encode(part.Property)) + "; ";
    };
    const auto form = Load(text, options);
    EXPECT_EQ(skipped, "2,3 Form1:TZooForm.Colour; 3,3 Form1:TZooFont.Font.Charset; 5,3 Strange:TStrange; "
                       "11,21 Box1.Columns[0]:TZooItem.Depth; 4,3 Form1:TZooForm.Peer; ");
    EXPECT_EQ(As<TZooItem>(Box(*form, u"Box1")->FColumns->GetItem(0))->FWidth, 2);
    EXPECT_EQ(form->GetComponentCount(), 1);

    options.SkipUnknownClasses = false;
    EXPECT_EQ(Fault([&] { Load(text, options); }), "zoo.dfm(5,3): Strange: Class TStrange not found");

    skipped.clear();
    constexpr char lost[] = "object Form1: TZooForm Peer = Nobody object Box1: TZooBox Peer = Form1.Nobody end end";
    EXPECT_EQ(Fault([&] { Load(lost, options); }), "zoo.dfm(1,24): Form1.Peer: there is no component Nobody");
    options.SkipUnknownReferences = true;
    EXPECT_EQ(As<TZooForm>(Load(lost, options).get())->GetPeer(), nullptr);
    EXPECT_EQ(skipped, "1,24 Form1:TZooForm.Peer; 1,59 Box1:TZooBox.Peer; ");
}

TEST_F(Forms, TakeValuesInAllTheirForms) {
    const auto form = Load("object Form1: TZooForm\n"
                           "  Font.Color = $FF00000F\n"
                           "  Mark = #0\n"
                           "  Ratio = 3\n"
                           "  Data = (1 'two' 3.5 True Null)\n"
                           "  Items.Strings = ()\n"
                           "  Columns = <item end item end>\n"
                           "  Peer = nil\n"
                           "  OnClick = nil\n"
                           "end\n");
    EXPECT_EQ(form->FFont->FColor, -16777201);
    EXPECT_EQ(form->FRatio, 3);
    ASSERT_EQ(form->FData.Count(), 5u);
    EXPECT_EQ(form->FData[1], Variant(u"two"));
    EXPECT_TRUE(VarIsNull(form->FData[4]));
    EXPECT_EQ(form->FColumns->GetCount(), 2);
    const std::string text = Saved(*form);
    EXPECT_NE(text.find("  Font.Color = clBtnFace\n"), std::string::npos) << text;
    EXPECT_NE(text.find("True\n    Null)"), std::string::npos) << text;

    // A collection in the form replaces the items that are there; what it does not name stays.
    form->FWidth = 99;
    LoadTextForm(*form, ParseTextForm("object Form1: TZooForm\n  Columns = <item Width = 1 end>\nend\n"));
    EXPECT_EQ(form->FColumns->GetCount(), 1);
    EXPECT_EQ(form->FWidth, 99);
}

TEST_F(Forms, LeaveNothingBehindWhenTheyFailInAnExistingRoot) {
    TZooForm form(nullptr);
    auto* kept = new TZooBox(&form);
    kept->SetName(u"Kept");
    form.FColumns->Add();
    EXPECT_NE(Fault([&] {
                  LoadTextForm(form, ParseTextForm("object Form1: TZooForm\n"
                                                   "  inherited Kept: TZooBox\n"
                                                   "    object New: TZooBox\n"
                                                   "      Columns = <item Colour = 1 end>\n"
                                                   "    end\n"
                                                   "  end\n"
                                                   "end\n"));
              }),
              "none");
    EXPECT_EQ(form.GetComponentCount(), 1);
    EXPECT_FALSE(form.GetComponentState().Contains(csLoading) || kept->GetComponentState().Contains(csReading));
    EXPECT_EQ(TakeLog().find("loaded"), std::string::npos);
    EXPECT_EQ(Fault([&] { LoadTextForm(form, ParseTextForm("object X: TZooTimer\nend\n")); }),
              "(1,1): X: the object is a TZooForm, not a TZooTimer");
    EXPECT_EQ(Fault([&] { LoadTextForm(form, ParseTextForm("object X: TZooForm object Kept: TZooBox end end")); }),
              "(1,20): Kept: A component named Kept already exists");
    EXPECT_EQ(Fault([&] { LoadTextForm(form, ParseTextForm("object X: TZooForm inherited Kept: TZooTimer end end")); }),
              "(1,20): Kept: the object is a TZooBox, not a TZooTimer");
    LoadTextForm(form, ParseTextForm("object X: TZooBox\nend\n")); // an ancestor's form fits
    EXPECT_EQ(form.GetName(), u"X");
}

struct TDeathCase {
    const char* Name;
    const char* Text;
    const char* Fault; ///< or "none"
};

constexpr TDeathCase deathCases[] = {
    {"itself", "object A: TZooBox Kill = 'self' end",
     "(1,38): A.Kill: the object was destroyed while it was being read"},
    {"itself, at the end of its reading", "object A: TZooBox Width = 1 Kill = 'self' end object B: TZooBox end",
     "(1,48): A.Kill: the object was destroyed while it was being read"},
    {"its parent", "object P: TZooBox object A: TZooBox Kill = 'P' end end",
     "(1,56): P: the object was destroyed while it was being read"},
    {"the root", "Kill = 'self' object A: TZooBox end",
     "(1,20): F.Kill: the object was destroyed while it was being read"},
    {"a finished sibling", "object A: TZooBox Peer = B end object B: TZooBox Kill = 'A' end", "none"},
    {"a sibling that others refer to", "object A: TZooBox end object B: TZooBox Peer = A Kill = 'A' end",
     "(1,60): B.Peer: there is no component A"},
    {"the collection", "object A: TZooBox Columns = <item Kill = True Width = 1 end> end",
     "(1,54): A.Columns[0].Kill: the object was destroyed while it was being read"},
    {"the collection around the collection",
     "object A: TZooBox Columns = <item Parts = <item Kill = True end item end> end> end",
     "(1,68): A.Columns[0].Parts[0].Kill: the object was destroyed while it was being read"},
    {"a sub-component", "HasLabel = True BoundLabel.Kill = 'self' BoundLabel.Width = 1",
     "(1,61): F.BoundLabel.Width: there is no object BoundLabel"},
    {"all the others when loaded",
     "OnLoaded = BoxKills object A: TZooBox OnLoaded = BoxKills end object B: TZooBox end object C: TZooBox end",
     "none"},
    {"a sibling by an event", "object A: TZooBox end object B: TZooBox OnClick = BoxKills Caption = 'x' end", "none"},
    {"itself by an event", "object A: TZooBox OnClick = BoxKills Caption = 'x' end",
     "(1,57): A.Caption: the object was destroyed while it was being read"},
};

TEST_F(Forms, SurviveHandlersThatDestroyWhatIsBeingRead) {
    for (const TDeathCase& each : deathCases) {
        SCOPED_TRACE(each.Name);
        std::unique_ptr<TComponent> form;
        EXPECT_EQ(
            Fault([&] { form = CreateFromTextForm("object F: TZooForm " + std::string(each.Text) + " end", nullptr); }),
            each.Fault);
        EXPECT_EQ(form == nullptr, std::string_view(each.Fault) != "none");
        form.reset();
        EXPECT_EQ(TZooBox::living, 0);
    }
}

TEST_F(Forms, ReadAnyDepth) {
    constexpr int depth = 10000;
    std::string text = "object F: TZooForm\n";
    for (int i = 0; i < depth; ++i)
        text += "object B" + std::to_string(i) + ": TZooBox\n";
    for (int i = 0; i <= depth; ++i)
        text += "end\n";
    TParseOptions parsing;
    parsing.NestingLimit = depth + 10;
    const TFormDocument document = ParseTextForm(text, parsing);
    const auto form = CreateFromTextForm(document, nullptr);
    EXPECT_EQ(form->GetComponentCount(), depth);
    const TFormDocument saved = SaveTextForm(*form);
    int levels = 0;
    for (auto children = saved.Root().Children(); !children.empty(); children = (*children.begin()).Children())
        ++levels;
    EXPECT_EQ(levels, depth);
}

/// Has rules that want everything written.
class TZooKeeper : public TZooForm {
    FRAMEWORK_CLASS(TZooKeeper)
public:
    explicit TZooKeeper(TComponent* owner) : TZooForm(owner) {}
    bool Always() const { return true; }
};

const TClassInfo& TZooKeeper::StaticClass() {
    static const TClassInfo info = DescribeClass<TZooKeeper>(
        u"TZooKeeper", TZooForm::StaticClass(),
        {Property<&TZooKeeper::GetPeer, &TZooKeeper::SetPeer>(u"Peer").StoredWhen<&TZooKeeper::Always>(),
         Event<&TZooKeeper::OnClick>(u"OnClick").StoredWhen<&TZooKeeper::Always>()});
    return info;
}

TEST_F(Forms, SaveThatNothingIsReferredTo) {
    TZooKeeper form(nullptr);
    const std::string saved = Saved(form);
    EXPECT_NE(saved.find("  Peer = nil\n  OnClick = nil\n"), std::string::npos) << saved;
    form.OnClick = [](TObject*) {};
    EXPECT_EQ(Saved(form).find("OnClick"), std::string::npos);
}

TEST_F(Forms, SaveReferencesOnlyByNames) {
    TZooForm form(nullptr);
    form.SetName(u"Form1");
    auto* nameless = new TZooBox(&form);
    form.SetPeer(nameless);
    EXPECT_THROW(SaveTextForm(form), EComponentError);
    EXPECT_FALSE(form.GetComponentState().Contains(csWriting));
    nameless->SetName(u"Named");
    nameless->OnClick = [](TObject*) {}; // no published method: nothing to write
    EXPECT_EQ(Saved(form), "object Form1: TZooForm\n"
                           "  Left = 0\n"
                           "  Top = 0\n"
                           "  Columns = <>\n"
                           "  Peer = Named\n"
                           "  object Named: TZooBox\n"
                           "    Left = 0\n"
                           "    Top = 0\n"
                           "    Columns = <>\n"
                           "  end\n"
                           "end\n");
    // A method of another form is written with the way to it.
    auto* frame = new TZooFrame(&form);
    SetMethodProp(*nameless, u"OnClick", frame, u"FrameClick");
    EXPECT_NE(Saved(form).find("    OnClick = Frame.FrameClick\n"), std::string::npos);
}

} // namespace
