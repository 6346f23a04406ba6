#pragma once

// One node of a virtual tree, as a program sees it. The tree makes, moves and frees nodes; a program holds a
// PVirtualNode for as long as the tree has not told it that the node goes (DoFreeNode, OnFreeNode).

#include "framework/system/sets.h"
#include "framework/system/types.h"

#include <cstddef>

namespace framework {

enum TVirtualNodeStateElement {
    vsInitialized, ///< DoInitNode has been called for it
    vsChecking,    ///< its check state is being changed
    vsDisabled,
    vsDeleting, ///< it has left the tree and is about to be freed
    vsExpanded,
    vsHasChildren, ///< shows a button; the children are made when it is expanded first
    vsVisible,     ///< not hidden by the program
    vsSelected,
    vsFiltered, ///< hidden by a filter
    vsHeightMeasured,
};
using TVirtualNodeStates = Set<TVirtualNodeStateElement>;

/// What OnInitNode is told and answers.
enum TVirtualNodeInitState {
    ivsDisabled,
    ivsExpanded,
    ivsHasChildren,
    ivsSelected,
    ivsFiltered,
    ivsReInit, ///< told only: the node had been initialised before
};
using TVirtualNodeInitStates = Set<TVirtualNodeInitState>;

/// A pressed state is that of a box on which the mouse button is held.
enum TCheckState {
    csUncheckedNormal,
    csUncheckedPressed,
    csCheckedNormal,
    csCheckedPressed,
    csMixedNormal,
    csMixedPressed,
};

enum TCheckType {
    ctNone,
    ctTriStateCheckBox, ///< a check box that can tell of children in both states
    ctCheckBox,
    ctRadioButton, ///< one among its siblings
};

struct TNodeBlock;
struct TNodeFamily;

class TVirtualNode {
public:
    FRAMEWORK_READ_PROPERTY(TVirtualNode*, Parent, GetParent);
    FRAMEWORK_READ_PROPERTY(TVirtualNode*, FirstChild, GetFirstChild);
    FRAMEWORK_READ_PROPERTY(TVirtualNode*, LastChild, GetLastChild);
    FRAMEWORK_READ_PROPERTY(TVirtualNode*, PrevSibling, GetPrevSibling);
    FRAMEWORK_READ_PROPERTY(TVirtualNode*, NextSibling, GetNextSibling);
    FRAMEWORK_READ_PROPERTY(unsigned, Index, GetIndex);
    FRAMEWORK_READ_PROPERTY(unsigned, ChildCount, GetChildCount);
    FRAMEWORK_READ_PROPERTY(int, NodeHeight, GetNodeHeight);
    FRAMEWORK_READ_PROPERTY(TVirtualNodeStates, States, GetStates);
    FRAMEWORK_READ_PROPERTY(TCheckState, CheckState, GetCheckState);
    FRAMEWORK_READ_PROPERTY(TCheckType, CheckType, GetCheckType);

    /// The tree's invisible root for nodes of the first level; null for that root itself.
    TVirtualNode* GetParent() const { return FParent; }
    TVirtualNode* GetFirstChild() const;
    TVirtualNode* GetLastChild() const;
    TVirtualNode* GetPrevSibling() const;
    TVirtualNode* GetNextSibling() const;
    /// The place among the siblings, from 0.
    unsigned GetIndex() const;
    unsigned GetChildCount() const;
    /// In pixels, without the children.
    int GetNodeHeight() const { return FHeight; }
    TVirtualNodeStates GetStates() const { return FStates; }
    bool Has(TVirtualNodeStateElement state) const { return FStates.Contains(state); }
    TCheckState GetCheckState() const { return static_cast<TCheckState>(FCheckState); }
    TCheckType GetCheckType() const { return static_cast<TCheckType>(FCheckType); }

    /// The application's data: NodeDataSize bytes that are zero at first, aligned for 64-bit numbers.
    void* GetData() { return this + 1; }
    const void* GetData() const { return this + 1; }

private:
    friend class TNodeStore;
    friend struct TNodeFamily;

    TVirtualNode() = default;

    bool ShowsRow() const { return FStates.Contains(vsVisible) && !FStates.Contains(vsFiltered); }

    TVirtualNode* FParent = nullptr;
    TNodeBlock* FBlock = nullptr;   // of the siblings; null for the root and for nodes that left the tree
    TNodeFamily* FFamily = nullptr; // the children; null while there are none
    std::int32_t FHeight = 0;
    TVirtualNodeStates FStates{vsVisible};
    std::uint32_t FChunk = 0; // of the pool
    std::uint16_t FSlot = 0;  // the place in the block
    std::uint8_t FCheckState = csUncheckedNormal;
    std::uint8_t FCheckType = ctNone;
};
using PVirtualNode = TVirtualNode*;

static_assert(sizeof(TVirtualNode) <= 40 && sizeof(TVirtualNode) % 8 == 0, "a million nodes have to stay small");

} // namespace framework
