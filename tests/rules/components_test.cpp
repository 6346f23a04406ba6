// Components: ownership, names, who hears of whose death, guards against death in a handler, the registry.

#include "framework/system/components.h"
#include "framework/system/exceptions.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <random>
#include <thread>

using namespace framework;

namespace {

std::vector<std::string> deaths;

class TPart : public TComponent {
    FRAMEWORK_CLASS(TPart)

public:
    explicit TPart(TComponent* owner, const String& name = {}) : TComponent(owner) { SetName(name); }
    ~TPart() override { deaths.push_back(Utf8Encode(GetName())); }

    void SetLink(TComponent* value) {
        FLink = value;
        if (value)
            value->FreeNotification(this);
    }

    TComponent* FLink = nullptr;
    std::string Heard;
    std::function<void(TComponent*)> OnInsert;
    std::function<void(TComponent*)> OnRemove;
    TNotifyEvent OnWork;

protected:
    void Notification(TComponent* component, TOperation operation) override {
        TComponent::Notification(component, operation);
        if (component == FLink && operation == opRemove)
            FLink = nullptr;
        Heard += (operation == opInsert ? "+" : "-") + Utf8Encode(component->GetName());
        if (const auto& handler = operation == opInsert ? OnInsert : OnRemove)
            handler(component);
    }
};

const TClassInfo& TPart::StaticClass() {
    static const TClassInfo info = DescribeClass<TPart>(u"TPart", TComponent::StaticClass());
    return info;
}

class TOtherPart : public TPart {
    FRAMEWORK_CLASS(TOtherPart)
public:
    using TPart::TPart;
};

const TClassInfo& TOtherPart::StaticClass() {
    static const TClassInfo info = DescribeClass<TOtherPart>(u"tpart", TPart::StaticClass());
    return info;
}

std::string Problem(const std::function<void()>& action) {
    try {
        action();
    } catch (const Exception& error) {
        return error.what();
    }
    return "none";
}

class Components : public testing::Test {
protected:
    void SetUp() override { deaths.clear(); }
};

TEST_F(Components, AreFreedByTheirOwnerTheNewestFirst) {
    {
        TPart root(nullptr, u"root");
        auto* first = new TPart(&root, u"first");
        new TPart(first, u"inner");
        new TPart(&root, u"second");
        EXPECT_EQ(root.GetComponentCount(), 2);
        EXPECT_EQ(root.GetComponent(0), first);
        EXPECT_EQ(Problem([&] { root.GetComponent(2); }), "Component index out of bounds (2)");
    }
    EXPECT_EQ(deaths, (std::vector<std::string>{"root", "second", "first", "inner"}));
}

TEST_F(Components, LeaveTheirOwnerWhenTheyDieOrMove) {
    TPart root(nullptr, u"root");
    TPart other(nullptr, u"other");
    auto* part = new TPart(&root, u"part");
    other.InsertComponent(part);
    EXPECT_EQ(root.GetComponentCount(), 0);
    EXPECT_EQ(part->GetOwner(), &other);
    other.InsertComponent(part); // again: nothing to do
    EXPECT_EQ(other.GetComponentCount(), 1);
    EXPECT_EQ(Problem([&] { part->InsertComponent(&other); }), "A component cannot own itself");
    EXPECT_EQ(Problem([&] { part->InsertComponent(part); }), "A component cannot own itself");
    delete part;
    EXPECT_EQ(other.GetComponentCount(), 0);
}

TEST_F(Components, HaveNamesThatTellThemApart) {
    // With few components and with so many that their names are kept in a table.
    for (const int others : {0, 30}) {
        TPart root(nullptr);
        for (int i = 0; i < others; ++i)
            new TPart(&root, u"Other" + IntToStr(i));
        auto* part = new TPart(&root, u"Edit1");
        new TPart(&root, u"Edit2");
        EXPECT_EQ(root.FindComponent(u"EDIT1"), part);
        EXPECT_EQ(Problem([&] { part->SetName(u"edit2"); }), "A component named edit2 already exists");
        EXPECT_EQ(Problem([&] { part->SetName(u"2Edit"); }), "\"2Edit\" is not a valid component name");
        EXPECT_EQ(part->GetName(), u"Edit1");
        part->SetName(u"EDIT1");
        EXPECT_EQ(root.FindComponent(u"edit1"), part);
        part->SetName(u"Renamed");
        EXPECT_EQ(root.FindComponent(u"Edit1"), nullptr);
        part->SetName({});
        new TPart(&root, {}); // nameless ones do not collide
        EXPECT_EQ(root.FindComponent(u"Renamed"), nullptr);
        EXPECT_EQ(root.FindComponent({}), nullptr);

        TPart stranger(nullptr, u"Edit2");
        EXPECT_EQ(Problem([&] { root.InsertComponent(&stranger); }), "A component named Edit2 already exists");
        EXPECT_EQ(stranger.GetOwner(), nullptr);
    }
}

// Names are looked up in a table that every renaming and every death has to keep.
TEST_F(Components, FindNamesAmongThousands) {
    constexpr int count = 3000;
    TComponent root(nullptr);
    std::vector<TComponent*> parts;
    for (int i = 0; i < count; ++i) {
        auto* part = new TComponent(&root);
        part->SetName(u"Component" + IntToStr(i));
        parts.push_back(part);
    }
    const std::uint32_t randomSeed = 20260511;
    SCOPED_TRACE("seed " + std::to_string(randomSeed));
    std::mt19937 random(randomSeed);
    for (int i = 0; i < count; i += 7)
        parts[static_cast<std::size_t>(i)]->SetName(u"Renamed" + IntToStr(i));
    for (int round = 0; round < count; ++round) {
        const int i = static_cast<int>(random() % count);
        const String name = (i % 7 == 0 ? u"renamed" : u"component") + IntToStr(i);
        ASSERT_EQ(root.FindComponent(name), parts[static_cast<std::size_t>(i)]);
    }
    for (int i = 0; i < count; i += 2)
        delete parts[static_cast<std::size_t>(i)];
    EXPECT_EQ(root.GetComponentCount(), count / 2);
    EXPECT_EQ(root.FindComponent(u"Component2"), nullptr);
    EXPECT_EQ(root.FindComponent(u"Component1"), parts[1]);
}

TEST_F(Components, HearOfSiblingsThatGoAndTheirOwnerOfAll) {
    TPart root(nullptr, u"root");
    TPart watcher(&root, u"watcher");
    root.Heard.clear();
    auto* part = new TPart(&root, u"part");
    delete part;
    EXPECT_EQ(watcher.Heard, "-part");
    EXPECT_EQ(root.Heard, "+-part"); // without a name yet when it came

    // An owner that refuses it keeps no pointer to what was never built.
    root.OnInsert = [&](TComponent* component) {
        component->FreeNotification(&watcher);
        throw EInvalidOperation(u"no more");
    };
    EXPECT_EQ(Problem([&] { new TPart(&root, u"refused"); }), "no more");
    EXPECT_EQ(root.GetComponentCount(), 1);
    EXPECT_FALSE(watcher.GetComponentState().Contains(csFreeNotification));
}

TEST_F(Components, ForgetLinksToTheDead) {
    TPart root(nullptr, u"root");
    TPart stranger(nullptr, u"stranger");
    auto* sibling = new TPart(&root, u"sibling");
    auto* target = new TPart(&root, u"target");
    sibling->SetLink(target);
    stranger.SetLink(target);
    target->SetLink(&stranger);
    delete target;
    EXPECT_EQ(sibling->FLink, nullptr);
    EXPECT_EQ(stranger.FLink, nullptr);
    EXPECT_FALSE(stranger.GetComponentState().Contains(csFreeNotification));

    // The other way: the one who asked dies first and is not called any more.
    auto* lasting = new TPart(&root, u"lasting");
    auto* brief = new TPart(nullptr, u"brief");
    brief->SetLink(lasting);
    delete brief;
    stranger.SetLink(lasting);
    stranger.RemoveFreeNotification(lasting);
    stranger.Heard.clear();
    delete lasting;
    EXPECT_EQ(stranger.Heard, "");
    stranger.FLink = nullptr;

    // One who asks in the very moment of death is told before it is too late.
    auto* asked = new TPart(&root, u"asked");
    root.OnRemove = [&](TComponent* component) { stranger.SetLink(component); };
    delete asked;
    EXPECT_EQ(stranger.FLink, nullptr);
}

// The owner frees its parts the newest first; parts that still live hear of those they point to.
TEST_F(Components, ForgetLinksWhileTheirOwnerDies) {
    auto* root = new TPart(nullptr, u"root");
    auto* older = new TPart(root, u"older");
    auto* newer = new TPart(root, u"newer");
    older->SetLink(newer);
    bool clearedInTime = false;
    older->OnRemove = [&](TComponent* component) { clearedInTime |= component == newer && !older->FLink; };
    delete root;
    EXPECT_TRUE(clearedInTime);
}

TEST_F(Components, SurviveHandlersThatFreeOthersWhileAllAreTold) {
    TPart root(nullptr, u"root");
    std::vector<TPart*> parts;
    for (const char16_t* name : {u"a", u"b", u"c", u"d"})
        parts.push_back(new TPart(&root, name));
    parts[1]->OnRemove = [&](TComponent* component) {
        if (component != parts[3])
            return;
        parts[1]->OnRemove = nullptr;
        delete parts[2];
        delete parts[0];
    };
    delete parts[3];
    EXPECT_EQ(root.GetComponentCount(), 1);
    EXPECT_EQ(root.GetComponent(0), parts[1]);
}

TEST_F(Components, TellTheirGuardsWhenTheyDie) {
    auto* part = new TPart(nullptr, u"part");
    TPart other(nullptr);
    auto outer = std::make_unique<TLifeGuard>(*part);
    auto middle = std::make_unique<TLifeGuard>(*part);
    auto inner = std::make_unique<TLifeGuard>(*part);
    middle.reset(); // in any order
    outer.reset();
    const TLifeGuard last(*part);
    const TLifeGuard unconcerned(other);
    EXPECT_TRUE(*inner);

    part->OnWork = [](TObject* sender) {
        static_cast<TPart*>(sender)->OnWork = nullptr; // the handler that runs is a copy
        delete static_cast<TPart*>(sender);
    };
    EXPECT_FALSE(Fire(*part, part->OnWork, part));
    EXPECT_FALSE(*inner);
    EXPECT_FALSE(last);
    EXPECT_TRUE(unconcerned);
    EXPECT_TRUE(Fire(other, other.OnWork, &other));
}

TEST_F(Components, PassDesignStateToTheirParts) {
    TPart root(nullptr);
    auto* part = new TPart(&root);
    root.SetDesigning(true);
    auto* late = new TPart(part);
    for (const TComponent* each :
         {static_cast<TComponent*>(&root), static_cast<TComponent*>(part), static_cast<TComponent*>(late)})
        EXPECT_TRUE(each->GetComponentState().Contains(csDesigning));
    root.SetDesigning(false);
    EXPECT_FALSE(late->GetComponentState().Contains(csDesigning));
}

TEST_F(Components, AreAllSeenWhileOtherThreadsMakeAndFreeTheirs) {
    std::atomic<bool> done = false;
    std::thread other([&] {
        while (!done)
            TComponent(nullptr).SetTag(2);
    });
    TPart first(nullptr, u"first");
    TPart second(&first, u"second");
    for (int i = 0; i < 20'000; ++i) {
        std::vector<String> names;
        EachLivingComponent([&](const TComponent& each) {
            if (each.InheritsFrom(TPart::StaticClass()))
                names.push_back(each.GetName());
        });
        ASSERT_EQ(names, (std::vector<String>{u"first", u"second"}));
    }
    done = true;
    other.join();
}

TEST_F(Components, AreCreatedByRegisteredNames) {
    EXPECT_EQ(GetClass(u"TPart"), nullptr);
    EXPECT_EQ(Problem([] { FindClass(u"TPart"); }), "Class TPart not found");
    RegisterComponents(u"Parts", {&TPart::StaticClass()});
    RegisterClasses({&TPart::StaticClass()});
    EXPECT_EQ(Problem([] { RegisterClasses({&TOtherPart::StaticClass()}); }), "Another class is registered as tpart");
    const std::unique_ptr<TComponent> part(FindClass(u"TPART").Create(nullptr));
    EXPECT_TRUE(As<TPart>(part.get()));
    EXPECT_FALSE(As<TOtherPart>(part.get()));
    ASSERT_EQ(PalettePages().size(), 1u);
    EXPECT_EQ(PalettePages()[0].Classes.size(), 1u);
    UnRegisterClasses({&TPart::StaticClass()});
    EXPECT_TRUE(PalettePages().empty());
    EXPECT_EQ(Problem([] { TPersistent::StaticClass().Create(nullptr); }), "A TPersistent cannot be created by name");
}

} // namespace
