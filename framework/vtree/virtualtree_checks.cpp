// Check boxes of nodes, and how parents and children follow each other.

#include "framework/graphics/checkmarks.h"
#include "framework/vtree/checkstates_rules.h"
#include "framework/vtree/virtualtree.h"

namespace framework {

bool TBaseVirtualTree::DoChecking(TVirtualNode* node, TCheckState& newState) {
    bool allowed = true;
    return Fire(*this, OnChecking, this, node, newState, allowed) && allowed;
}

void TBaseVirtualTree::DoChecked(TVirtualNode* node) {
    Fire(*this, OnChecked, this, node);
}

bool TBaseVirtualTree::PutCheckState(TVirtualNode* node, TCheckState state) {
    if (node->GetCheckState() == state)
        return false;
    TNodeStore::SetCheck(node, node->GetCheckType(), state);
    InvalidateNode(node);
    return true;
}

void TBaseVirtualTree::SetCheckType(TVirtualNode* node, TCheckType value) {
    if (node->GetCheckType() == value)
        return;
    TNodeStore::SetCheck(node, value, node->GetCheckState());
    InvalidateNode(node);
}

void TBaseVirtualTree::SetCheckState(TVirtualNode* node, TCheckState value) {
    if (node->GetCheckState() == value || node->Has(vsChecking))
        return;
    TLifeGuard alive(*this);
    const TNodeRef still(*FStore, node);
    const bool follows = HasAuto(toAutoTristateTracking) && node->GetCheckType() != ctRadioButton;
    if (follows && (!AskForSiblings(node) || !alive || !still))
        return;
    bool allowed = false;
    {
        FStore->SetState(node, vsChecking, true);
        const TAtScopeEnd asked(*this, [&] {
            if (still)
                FStore->SetState(node, vsChecking, false);
        });
        allowed = DoChecking(node, value);
    }
    if (!alive || !still || !allowed)
        return;
    PutCheckState(node, value);
    if (node->GetCheckType() == ctRadioButton && value == csCheckedNormal)
        CheckSiblings(node);
    if (follows && value != csMixedNormal) {
        CheckChildren(node, value);
        CheckParents(node);
    }
    DoChecked(node);
    if (alive && still)
        TellNode(EVENT_OBJECT_STATECHANGE, node);
}

/// Tri-state boxes above a node tell of all their children, so all of these have to be known; false when the tree died.
bool TBaseVirtualTree::AskForSiblings(TVirtualNode* node) {
    TLifeGuard alive(*this);
    TNodeRef parent(*FStore, node->GetParent());
    while (alive && parent && parent.Get()->GetCheckType() == ctTriStateCheckBox) {
        TNodeWalk walk(FStore, parent.Get()->GetFirstChild(), &TNodeWalk::NextSibling);
        for (; alive && walk; walk.Step())
            InitNode(walk.Node());
        if (alive && parent)
            parent.Set(parent.Get()->GetParent());
    }
    return static_cast<bool>(alive);
}

/// A box that shows late below a checked branch is checked, too.
void TBaseVirtualTree::CheckLikeParent(TVirtualNode* node) {
    const TVirtualNode* parent = node->GetParent();
    const TCheckType type = node->GetCheckType();
    if (HasAuto(toAutoTristateTracking) && parent->GetCheckType() == ctTriStateCheckBox &&
        UnpressedState(parent->GetCheckState()) == csCheckedNormal &&
        (type == ctTriStateCheckBox || type == ctCheckBox) && node->GetCheckState() == csUncheckedNormal)
        TNodeStore::SetCheck(node, type, csCheckedNormal);
}

/// Children with boxes take the state of a tri-state box; those that have not been asked for, when they are. Screen
/// readers hear of them once: there may be a million.
void TBaseVirtualTree::CheckChildren(TVirtualNode* node, TCheckState state) {
    if (node->GetCheckType() != ctTriStateCheckBox)
        return;
    bool changed = false;
    for (TVirtualNode* each = FStore->Next(node, TNodeMeasure::Nodes); each && TNodeStore::IsWithin(each, node);
         each = FStore->Next(each, TNodeMeasure::Nodes)) {
        if (each->GetCheckType() == ctTriStateCheckBox || each->GetCheckType() == ctCheckBox)
            changed = PutCheckState(each, state) || changed;
    }
    if (changed)
        TellTree(EVENT_OBJECT_STATECHANGE);
}

/// Tri-state boxes above a node tell of their children.
void TBaseVirtualTree::CheckParents(TVirtualNode* node) {
    for (TVirtualNode* parent = node->GetParent(); parent && parent != FStore->Root(); parent = parent->GetParent()) {
        if (parent->GetCheckType() != ctTriStateCheckBox)
            return;
        TCheckSummary summary;
        for (const TVirtualNode* each = parent->GetFirstChild(); each; each = each->GetNextSibling()) {
            if (each->GetCheckType() == ctTriStateCheckBox || each->GetCheckType() == ctCheckBox)
                summary.Add(each->GetCheckState());
        }
        if (!summary.Empty() && PutCheckState(parent, summary.State()))
            TellNode(EVENT_OBJECT_STATECHANGE, parent);
    }
}

void TBaseVirtualTree::CheckSiblings(TVirtualNode* node) {
    for (TVirtualNode* each = node->GetParent()->GetFirstChild(); each; each = each->GetNextSibling()) {
        if (each != node && each->GetCheckType() == ctRadioButton && PutCheckState(each, csUncheckedNormal))
            TellNode(EVENT_OBJECT_STATECHANGE, each);
    }
}

/// The person's click on a box, or the space key.
void TBaseVirtualTree::ClickCheck(TVirtualNode* node) {
    if (!HasMisc(toCheckSupport) || HasMisc(toReadOnly) || node->Has(vsDisabled) || node->GetCheckType() == ctNone)
        return;
    SetCheckState(node, NextCheckState(node->GetCheckType(), node->GetCheckState()));
}

TCheckLook TBaseVirtualTree::CheckLook(TCheckType type, TCheckState state, bool enabled) const {
    const TCheckState plain = UnpressedState(state);
    return {.Mark = plain == csCheckedNormal ? TCheckMark::Checked
                    : plain == csMixedNormal ? TCheckMark::Mixed
                                             : TCheckMark::Unchecked,
            .Radio = type == ctRadioButton,
            .Enabled = enabled,
            .Pressed = IsPressed(state)};
}

TVirtualNode* TBaseVirtualTree::GetFirstChecked(TCheckState state) const {
    TVirtualNode* node = FStore->First(TNodeMeasure::Initialized);
    return node && node->GetCheckState() != state ? GetNextChecked(node, state) : node;
}

TVirtualNode* TBaseVirtualTree::GetNextChecked(TVirtualNode* node, TCheckState state) const {
    do
        node = FStore->Next(node, TNodeMeasure::Initialized);
    while (node && node->GetCheckState() != state);
    return node;
}

} // namespace framework
