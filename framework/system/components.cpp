#include "framework/system/components.h"

#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <algorithm>
#include <iterator>
#include <mutex>

namespace framework {

namespace {

// Below this many owned components a walk is quicker than a table.
constexpr std::size_t indexNamesFrom = 16;

struct TRegistry {
    TNameMap<const TClassInfo*> Classes;
    std::vector<TPalettePage> Pages;
};

TRegistry& Registry() {
    static TRegistry registry;
    return registry;
}

// The ends of the list of all components. A thread may make components of its own, such as a dataset, hence the lock.
std::mutex livingLock;
TComponent* oldest = nullptr;
TComponent* youngest = nullptr;

/// Takes out the last occurrence, which is the only one: what came late mostly goes early. False when there is none.
bool TakeOut(std::vector<TComponent*>& components, const TComponent* component) {
    const auto found = std::find(components.rbegin(), components.rend(), component);
    if (found == components.rend())
        return false;
    components.erase(std::next(found).base());
    return true;
}

} // namespace

const TClassInfo& TComponent::StaticClass() {
    static const TClassInfo info = DescribeClass<TComponent>(
        u"TComponent", TPersistent::StaticClass(),
        {Property<&TComponent::GetName, &TComponent::SetName>(u"Name").NotStored(), // the object's header carries it
         Property<&TComponent::GetTag, &TComponent::SetTag>(u"Tag", 0),
         // Controls have rows of their own under these names, which take the places of these two.
         Property<&TComponent::GetDesignLeft, &TComponent::SetDesignLeft>(u"Left", 0),
         Property<&TComponent::GetDesignTop, &TComponent::SetDesignTop>(u"Top", 0)});
    return info;
}

TComponent::TComponent() {
    const std::lock_guard lock(livingLock);
    FOlder = youngest;
    (youngest ? youngest->FYounger : oldest) = this;
    youngest = this;
}

// By way of the other constructor, so that the destructor runs when the owner refuses the component.
TComponent::TComponent(TComponent* owner) : TComponent() {
    if (owner)
        owner->InsertComponent(this);
}

TComponent::~TComponent() {
    Destroying();
    RemoveNotifications();
    DestroyComponents();
    if (FOwner)
        FOwner->RemoveComponent(this);
    RemoveNotifications(); // asked for by those who heard of the death
    for (TLifeGuard* guard = FGuards; guard; guard = guard->FNext)
        guard->FComponent = nullptr;
    const std::lock_guard lock(livingLock);
    (FOlder ? FOlder->FYounger : oldest) = FYounger;
    (FYounger ? FYounger->FOlder : youngest) = FOlder;
}

void EachLivingComponent(const std::function<void(const TComponent&)>& visit) {
    const std::lock_guard lock(livingLock);
    for (const TComponent* each = oldest; each; each = each->FYounger)
        visit(*each);
}

TLifeGuard::TLifeGuard(TComponent& component)
    : FComponent(&component), FNext(component.FGuards), FLink(&component.FGuards) {
    if (FNext)
        FNext->FLink = &FNext;
    *FLink = this;
}

TLifeGuard::~TLifeGuard() {
    if (!FComponent)
        return;
    *FLink = FNext;
    if (FNext)
        FNext->FLink = FLink;
}

void TComponent::Destroying() {
    if (FComponentState.Contains(csDestroying))
        return;
    FComponentState << csDestroying;
    for (TComponent* component : FComponents)
        component->Destroying();
}

void TComponent::RemoveNotifications() {
    while (!FFreeNotifies.empty()) {
        TComponent* other = FFreeNotifies.back();
        RemoveFreeNotification(other);
        other->Notification(this, opRemove);
    }
}

void TComponent::DestroyComponents() {
    while (!FComponents.empty()) {
        TComponent* component = FComponents.back();
        TLifeGuard alive(*component);
        component->BeforeDestruction();
        if (!alive)
            continue;
        // Siblings that keep a pointer have asked for notice; telling all of all would cost the square of their number.
        if (component->FComponentState.Contains(csFreeNotification))
            RemoveComponent(component);
        else
            RemoveOwned(component);
        delete component;
    }
}

void TComponent::SetName(const String& name) {
    if (name == FName)
        return;
    if (!name.empty() && !IsValidIdent(name))
        throw EComponentError(u"\"" + name + u"\" is not a valid component name");
    if (FOwner)
        FOwner->ValidateRename(this, FName, name);
    else
        ValidateRename(nullptr, FName, name);
    if (FOwner) {
        FOwner->IndexName(this, false);
        FOwner->FillField(this, false);
    }
    FName = name;
    if (FOwner) {
        FOwner->IndexName(this, true);
        FOwner->FillField(this, true);
    }
}

void TComponent::ValidateRename(TComponent* component, const String& oldName, const String& newName) {
    if (component && !newName.empty() && !TNameEqual()(oldName, newName) && FindComponent(newName))
        throw EComponentError(u"A component named " + newName + u" already exists");
}

String TComponent::GetNamePath() const {
    return FName.empty() ? ClassName() : FName;
}

TComponent* TComponent::GetComponent(int index) const {
    if (index < 0 || index >= GetComponentCount())
        throw EListError(u"Component index out of bounds (" + IntToStr(index) + u")");
    return FComponents[static_cast<std::size_t>(index)];
}

TComponent* TComponent::FindComponent(StringView name) const {
    if (name.empty())
        return nullptr;
    if (NameIndexed()) {
        const auto found = FNameIndex.find(name);
        return found == FNameIndex.end() ? nullptr : found->second;
    }
    const auto found =
        std::ranges::find_if(FComponents, [name](TComponent* each) { return TNameEqual()(each->FName, name); });
    return found == FComponents.end() ? nullptr : *found;
}

void TComponent::IndexName(TComponent* component, bool present) {
    if (component->FName.empty())
        return;
    if (!NameIndexed()) {
        if (!present || FComponents.size() < indexNamesFrom)
            return;
        for (TComponent* each : FComponents) {
            if (!each->FName.empty())
                FNameIndex.emplace(each->FName, each);
        }
        return;
    }
    if (present)
        FNameIndex.insert_or_assign(component->FName, component);
    else
        FNameIndex.erase(component->FName);
}

/// Lets the published field of the component's name point to it, or to nothing again.
void TComponent::FillField(TComponent* component, bool present) {
    const TFieldInfo* field = component->FName.empty() ? nullptr : ClassInfo().FindField(component->FName);
    if (!field)
        return;
    if (present && component->InheritsFrom(field->ObjectClass()))
        field->Set(*this, component);
    else if (!present && field->Get(*this) == component)
        field->Set(*this, nullptr);
}

void TComponent::InsertOwned(TComponent* component) {
    FComponents.push_back(component);
    component->FOwner = this;
    IndexName(component, true);
    FillField(component, true);
}

void TComponent::RemoveOwned(TComponent* component) {
    IndexName(component, false);
    FillField(component, false);
    TakeOut(FComponents, component);
    component->FOwner = nullptr;
}

void TComponent::InsertComponent(TComponent* component) {
    if (component->FOwner == this)
        return;
    for (const TComponent* each = this; each; each = each->FOwner) {
        if (each == component)
            throw EComponentError(u"A component cannot own itself");
    }
    ValidateRename(component, {}, component->FName);
    if (component->FOwner)
        component->FOwner->RemoveComponent(component);
    InsertOwned(component);
    if (FComponentState.Contains(csDesigning))
        component->SetDesigning(true);
    Notification(component, opInsert);
}

void TComponent::RemoveComponent(TComponent* component) {
    if (component->FOwner != this)
        return;
    Notification(component, opRemove);
    RemoveOwned(component);
}

void TComponent::Notification(TComponent* component, TOperation operation) {
    // Nobody keeps a pointer to one that comes; telling all of all would cost the square of their number.
    if (operation != opRemove || !component)
        return;
    RemoveFreeNotification(component);
    // A walk by index from the end: a component may remove itself when it hears of another's death.
    for (std::size_t i = FComponents.size(); i-- > 0;) {
        if (i < FComponents.size() && FComponents[i] != component)
            FComponents[i]->Notification(component, operation);
    }
}

void TComponent::FreeNotification(TComponent* component) {
    if (!component || component == this)
        return;
    // Thousands may point to one component, each of them to few.
    const bool isShorter = FFreeNotifies.size() < component->FFreeNotifies.size();
    const auto& list = isShorter ? FFreeNotifies : component->FFreeNotifies;
    if (std::ranges::find(list, isShorter ? component : this) != list.end())
        return;
    for (const auto& [one, other] : {std::pair(this, component), std::pair(component, this)}) {
        one->FFreeNotifies.push_back(other);
        one->FComponentState << csFreeNotification;
    }
}

void TComponent::RemoveFreeNotification(TComponent* component) {
    if (!component || !TakeOut(FFreeNotifies, component))
        return;
    TakeOut(component->FFreeNotifies, this);
    for (TComponent* each : {this, component})
        each->ChangeState(csFreeNotification, !each->FFreeNotifies.empty());
}

void TComponent::SetSubComponent(bool value) {
    if (value)
        FComponentStyle << csSubComponent;
    else
        FComponentStyle >> csSubComponent;
}

void TComponent::SetDesigning(bool value, bool setChildren) {
    ChangeState(csDesigning, value);
    if (setChildren) {
        for (TComponent* component : FComponents)
            component->SetDesigning(value);
    }
}

void TComponent::ChangeState(TComponentStateElement element, bool present) {
    if (present)
        FComponentState << element;
    else
        FComponentState >> element;
}

std::vector<TComponent*> TComponent::GetChildren(TComponent* root) const {
    // What has no parent is written inside the root that owns it.
    std::vector<TComponent*> children;
    if (root == this)
        std::ranges::copy_if(FComponents, std::back_inserter(children),
                             [](TComponent* each) { return !each->HasParent(); });
    return children;
}

void TComponent::SetParentComponent(TComponent*) {
}

void TComponent::SetChildOrder(TComponent*, int) {
}

void TComponent::Loaded() {
    FComponentState >> csLoading;
}

void RegisterClasses(std::initializer_list<const TClassInfo*> classes) {
    for (const TClassInfo* info : classes) {
        const auto [place, added] = Registry().Classes.try_emplace(info->Name(), info);
        if (!added && place->second != info)
            throw EComponentError(u"Another class is registered as " + info->Name());
    }
}

void UnRegisterClasses(std::initializer_list<const TClassInfo*> classes) {
    for (const TClassInfo* info : classes) {
        const auto found = Registry().Classes.find(info->Name());
        if (found != Registry().Classes.end() && found->second == info)
            Registry().Classes.erase(found);
        for (TPalettePage& page : Registry().Pages)
            std::erase(page.Classes, info);
    }
    std::erase_if(Registry().Pages, [](const TPalettePage& page) { return page.Classes.empty(); });
}

const TClassInfo* GetClass(StringView name) {
    const auto found = Registry().Classes.find(name);
    return found == Registry().Classes.end() ? nullptr : found->second;
}

const TClassInfo& FindClass(StringView name) {
    const TClassInfo* info = GetClass(name);
    if (!info)
        throw EClassNotFound(u"Class " + String(name) + u" not found");
    return *info;
}

std::vector<const TClassInfo*> RegisteredClasses() {
    std::vector<const TClassInfo*> classes;
    for (const auto& [name, info] : Registry().Classes)
        classes.push_back(info);
    std::ranges::sort(classes, {}, &TClassInfo::Name);
    return classes;
}

void RegisterComponents(const String& page, std::initializer_list<const TClassInfo*> classes) {
    RegisterClasses(classes);
    auto& pages = Registry().Pages;
    auto place = std::ranges::find_if(pages, [&](const TPalettePage& each) { return each.Name == page; });
    if (place == pages.end())
        place = pages.insert(pages.end(), TPalettePage{page, {}});
    for (const TClassInfo* info : classes) {
        if (std::ranges::find(place->Classes, info) == place->Classes.end())
            place->Classes.push_back(info);
    }
}

const std::vector<TPalettePage>& PalettePages() {
    return Registry().Pages;
}

} // namespace framework
