// Form classes and their text forms: references between forms, frames, forms built on those of their ancestors, and
// fields.

#include "tests/support/zooforms.h"

using namespace framework;
using namespace testsupport;

namespace {

TEST_F(Forms, FindComponentsOfOtherForms) {
    TZooForm application(nullptr);
    auto* data = new TZooForm(&application);
    data->SetName(u"Data");
    auto* source = new TZooBox(data);
    source->SetName(u"Source");
    constexpr char text[] =
        "object Form1: TZooForm\n  Left = 0\n  Top = 0\n  Columns = <>\n  Peer = Data.Source\nend\n";
    const auto form = CreateFromTextForm(text, &application);
    EXPECT_EQ(As<TZooForm>(form.get())->GetPeer(), source);
    EXPECT_EQ(Saved(*form), text);

    TLoadOptions options;
    options.FindRoot = [&](StringView name) -> TComponent* { return name == u"Data" ? data : nullptr; };
    const auto free = CreateFromTextForm(text, nullptr, options);
    EXPECT_EQ(As<TZooForm>(free.get())->GetPeer(), source);

    // A second form of the same name beside the first one.
    const auto second = CreateFromTextForm(text, &application);
    EXPECT_EQ(second->GetName(), u"Form1_1");
    EXPECT_EQ(form->GetName(), u"Form1");
}

std::string Waiting() {
    std::string text;
    for (const TPendingReference& each : PendingReferences())
        text += Utf8Encode(each.FileName + u"(" + IntToStr(each.Line) + u"," + IntToStr(each.Column) + u") " +
                           each.Object + u"." + each.Property + u"=" + each.Wanted + u" ");
    return text;
}

TEST_F(Forms, WaitForThoseThatTheyReferTo) {
    const auto form = Load("object Form1: TZooForm\n"
                           "  Peer = Data.Source\n"
                           "  object Box1: TZooBox\n"
                           "    Columns = <item Link = Data.Owner end item Link = Other.Box end>\n"
                           "    Peer = Owner\n"
                           "  end\n"
                           "end\n");
    EXPECT_EQ(Box(*form, u"Box1")->GetPeer(), form.get()); // designers call the form so
    EXPECT_EQ(Waiting(), "zoo.dfm(2,3) Form1.Peer=Data.Source zoo.dfm(4,21) Box1.Columns[0].Link=Data.Owner "
                         "zoo.dfm(4,48) Box1.Columns[1].Link=Other.Box ");
    EXPECT_NE(Saved(*form).find("\n  Peer = Data.Source\n"), std::string::npos) << Saved(*form);
    EXPECT_NE(Saved(*form).find("        Link = Other.Box\n"), std::string::npos) << Saved(*form);
    auto brief = Load("object Form2: TZooForm Peer = Data.Source end");
    brief.reset(); // waits no longer
    EXPECT_NE(Fault([] { Load("object F: TZooForm Peer = Data.Source Width = 'x' end"); }), "none");

    const auto data = Load("object Data: TZooForm object Source: TZooBox end end");
    EXPECT_EQ(form->GetPeer(), Box(*data, u"Source"));
    const auto item = [&](int index) { return As<TZooItem>(Box(*form, u"Box1")->FColumns->GetItem(index)); };
    EXPECT_EQ(item(0)->FLink, data.get());
    EXPECT_EQ(Waiting(), "zoo.dfm(4,48) Box1.Columns[1].Link=Other.Box ");

    TZooForm other(nullptr);
    (new TZooBox(&other))->SetName(u"Box");
    ResolvePendingReferences();
    EXPECT_EQ(item(1)->FLink, nullptr);
    ResolvePendingReferences([&](StringView name) { return name == u"Other" ? &other : nullptr; });
    EXPECT_EQ(item(1)->FLink, Box(other, u"Box"));
    EXPECT_EQ(Waiting(), "");

    // What comes does not fit: the fault is where the reference stands.
    const auto wrong = Load("object Form3: TZooForm\n Peer = Late.Clock end");
    EXPECT_EQ(Fault([] { Load("object Late: TZooForm object Clock: TZooTimer end end"); }),
              "zoo.dfm(2,2): Form3.Peer: a TZooTimer is not a TZooBox");
    EXPECT_EQ(Waiting(), "");
}

/// Loads a form each time it is clicked, as a handler may that a setter calls.
class TZooOpener : public TZooForm {
    FRAMEWORK_CLASS(TZooOpener)
public:
    explicit TZooOpener(TComponent* owner) : TZooForm(owner) {}
    void SetPartner(TZooBox* value) {
        SetPeer(value);
        Opened = Load("object Second: TZooForm\n Peer = Third.A object A: TZooBox end end");
    }
    std::unique_ptr<TZooForm> Opened;
};

const TClassInfo& TZooOpener::StaticClass() {
    static const TClassInfo info = DescribeClass<TZooOpener>(
        u"TZooOpener", TZooForm::StaticClass(), {Property<&TZooOpener::GetPeer, &TZooOpener::SetPartner>(u"Partner")});
    return info;
}

TEST_F(Forms, AreOpenedWhileOthersStopWaiting) {
    RegisterClasses({&TZooOpener::StaticClass()});
    const auto opener = Load("object Form1: TZooOpener Partner = First.A Peer = Second.A end");
    const auto late = Load("object Form2: TZooForm Peer = Second.A end");
    const auto first = Load("object First: TZooForm object A: TZooBox end end");
    TZooForm* second = As<TZooOpener>(opener.get())->Opened.get();
    ASSERT_TRUE(second);
    EXPECT_EQ(opener->GetPeer(), Box(*second, u"A"));
    EXPECT_EQ(late->GetPeer(), Box(*second, u"A"));
    EXPECT_EQ(Waiting(), "zoo.dfm(2,2) Second.Peer=Third.A ");
    UnRegisterClasses({&TZooOpener::StaticClass()});
}

TEST_F(Forms, ReadInlineFramesWithTheirOwnForms) {
    constexpr char text[] = "object Form1: TZooForm\n"
                            "  Peer = Pane.Second\n"
                            "  inline Pane: TZooFrame\n"
                            "    Top = 8\n"
                            "    inherited First: TZooBox\n"
                            "      Caption = 'changed'\n"
                            "      Peer = Other\n"
                            "    end\n"
                            "    object Added: TZooBox [1]\n"
                            "      OnClick = BoxClick\n"
                            "    end\n"
                            "  end\n"
                            "  inline Other: TZooFrame\n"
                            "  end\n"
                            "end\n";
    const auto form = Load(text);
    const std::string log = TakeLog();
    EXPECT_EQ(log.substr(log.find("loaded")), "loaded Form1, loaded Pane, loaded First, loaded Second, loaded Added, "
                                              "loaded Other, loaded First, loaded Second");
    TZooBox* pane = Box(*form, u"Pane");
    EXPECT_EQ(form->GetComponentCount(), 2);
    EXPECT_EQ(pane->FWidth, 70);
    EXPECT_EQ(pane->FTop, 8);
    EXPECT_EQ(Names(pane->GetChildren(pane)), "First Added Second");
    EXPECT_EQ(form->GetPeer(), Box(*pane, u"Second"));
    EXPECT_EQ(Box(*pane, u"Second")->GetPeer(), Box(*pane, u"First"));
    EXPECT_EQ(Box(*pane, u"First")->GetPeer(), Box(*form, u"Other"));
    EXPECT_EQ(Box(*pane, u"Added")->GetOwner(), pane);

    const std::string saved = Saved(*form);
    EXPECT_NE(saved.find("    object Added: TZooBox [1]\n"), std::string::npos) << saved;
    EXPECT_NE(saved.find("    inherited Second: TZooBox\n"), std::string::npos) << saved;
    const auto again = Load(saved);
    EXPECT_EQ(Saved(*again), saved);
}

// What an ancestor's form made is changed by that of the descendant; Loaded comes once, when both are read.
class TZooChild : public TZooForm {
    FRAMEWORK_CLASS(TZooChild)
public:
    explicit TZooChild(TComponent* owner) : TZooForm(owner) {
        LoadTextForm(*this, ParseTextForm("object Ancestor: TZooForm\n"
                                          "  Caption = 'ancestor'\n"
                                          "  object A: TZooBox\n"
                                          "    Width = 11\n"
                                          "    object B: TZooBox\n"
                                          "    end\n"
                                          "  end\n"
                                          "end\n"));
    }
};

const TClassInfo& TZooChild::StaticClass() {
    static const TClassInfo info = DescribeClass<TZooChild>(u"TZooChild", TZooForm::StaticClass());
    return info;
}

TEST_F(Forms, BuildOnThatOfTheirAncestor) {
    RegisterClasses({&TZooChild::StaticClass()});
    const auto form = Load("inherited Child: TZooChild\n"
                           "  Width = 5\n"
                           "  inherited A: TZooBox\n"
                           "    Left = 7\n"
                           "    object C: TZooBox [0]\n"
                           "    end\n"
                           "    inherited B: TZooBox\n"
                           "      Peer = C\n"
                           "    end\n"
                           "  end\n"
                           "end\n");
    const std::string log = TakeLog();
    EXPECT_EQ(log.substr(log.find("loaded")), "loaded Child, loaded A, loaded B, loaded C");
    EXPECT_EQ(form->GetCaption(), u"ancestor");
    EXPECT_EQ(Box(*form, u"A")->FWidth, 11);
    EXPECT_EQ(Names(Box(*form, u"A")->GetChildren(form.get())), "C B");
    const std::string saved = Saved(*form);
    EXPECT_EQ(saved.substr(0, 27), "inherited Child: TZooChild\n");
    EXPECT_EQ(Saved(*Load(saved)), saved);
    UnRegisterClasses({&TZooChild::StaticClass()});
}

/// What a host writes: a form class with fields, and one that derives from it, each with its own form.
class TZooCustomer : public TZooForm {
    FRAMEWORK_CLASS(TZooCustomer)
public:
    explicit TZooCustomer(TComponent* owner) : TZooForm(owner) {
        LoadTextForm(*this, Parsed(u"customer.dfm", "object Customer: TZooCustomer\n"
                                                    "  object Name: TZooBox\n"
                                                    "    OnLoaded = NameLoaded\n"
                                                    "  end\n"
                                                    "  object Clock: TZooTimer\n"
                                                    "  end\n"
                                                    "end\n"));
    }
    static TFormDocument Parsed(const String& fileName, std::string_view text) {
        TParseOptions options;
        options.FileName = fileName;
        return ParseTextForm(text, options);
    }

    void NameLoaded(TObject* sender) {
        if (GetCaption() == u"bad")
            Refuse(sender);
    }
    void Refuse(TObject*) { throw EInvalidOperation(u"not this customer"); }

    TZooBox* Name = nullptr;
    TZooTimer* Clock = nullptr;
};

const TClassInfo& TZooCustomer::StaticClass() {
    static const TClassInfo info = DescribeClass<TZooCustomer>(
        u"TZooCustomer", TZooForm::StaticClass(), {},
        {Method<&TZooCustomer::NameLoaded>(u"NameLoaded"), Method<&TZooCustomer::Refuse>(u"Refuse")},
        {Field<&TZooCustomer::Name>(u"Name"), Field<&TZooCustomer::Clock>(u"Clock")});
    return info;
}

class TZooMember : public TZooCustomer {
    FRAMEWORK_CLASS(TZooMember)
public:
    static inline std::string form;

    explicit TZooMember(TComponent* owner) : TZooCustomer(owner) { LoadTextForm(*this, Parsed(u"member.dfm", form)); }
    void NumberKnown(TObject* sender) {
        log.push_back(As<TComponent>(sender)->GetName() + u" with number " + Number->GetName());
    }

    TZooBox* Number = nullptr;
};

const TClassInfo& TZooMember::StaticClass() {
    static const TClassInfo info = DescribeClass<TZooMember>(u"TZooMember", TZooCustomer::StaticClass(), {},
                                                             {Method<&TZooMember::NumberKnown>(u"NumberKnown")},
                                                             {Field<&TZooMember::Number>(u"Number")});
    return info;
}

TEST_F(Forms, FillTheFieldsOfTheirClasses) {
    TZooMember::form = "inherited Member: TZooMember\n"
                       "  inherited Name: TZooBox\n"
                       "    OnLoaded = NumberKnown\n"
                       "  end\n"
                       "  object NUMBER: TZooBox\n"
                       "  end\n"
                       "end\n";
    const auto form = CreateForm<TZooMember>(nullptr);
    EXPECT_EQ(TakeLog(), "updating TZooCustomer, updating TZooBox, updating TZooMember, updating TZooBox, "
                         "updating TZooBox, loaded Member, loaded Name, Name with number NUMBER, loaded NUMBER");
    EXPECT_EQ(form->Name, Box(*form, u"Name"));
    EXPECT_EQ(form->Number, Box(*form, u"Number"));
    EXPECT_EQ(form->Clock, form->FindComponent(u"Clock"));

    // A field follows the name, and the life of what bears it.
    form->Name->SetName(u"Elsewhere");
    EXPECT_EQ(form->Name, nullptr);
    form->Number->SetName(u"Name");
    EXPECT_EQ(form->Number, nullptr);
    EXPECT_EQ(form->Name->GetName(), u"Name");
    form->Clock->SetName({});
    (new TZooBox(form.get()))->SetName(u"Clock");
    EXPECT_EQ(form->Clock, nullptr); // of another class
    delete form->Name;
    EXPECT_EQ(form->Name, nullptr);

    const auto fault = [](const std::string& content) {
        TZooMember::form = "inherited Member: TZooMember\n" + content + "\nend\n";
        return Fault([] { CreateForm<TZooMember>(nullptr); });
    };
    EXPECT_EQ(fault(""), "member.dfm(1,1): Member: the form has no component for the field Number");
    EXPECT_EQ(fault("  object Number: TZooTimer end"),
              "member.dfm(2,3): Number: a TZooTimer does not fit the field Number, which takes a TZooBox");
    // Loaded comes when both forms are read; its faults are told in that of the component.
    EXPECT_EQ(fault("  Caption = 'bad' object Number: TZooBox end"), "customer.dfm(2,3): Name: not this customer");
    EXPECT_EQ(fault("  object Number: TZooBox OnLoaded = Refuse end"), "member.dfm(2,3): Number: not this customer");
}

} // namespace
