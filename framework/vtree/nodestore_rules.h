#pragma once

// The nodes of a virtual tree and their order. Siblings lie in blocks, and each family keeps running sums over its
// blocks: how many nodes, rows, pixels, selected and initialised nodes. So the node at a place and the place of a node
// are found in about the same time among a thousand and among ten million, and so is the next selected node.
//
// Two spaces of numbers are used here. An index counts siblings; a row counts the nodes that show, those in collapsed
// or hidden branches left out. Tops are pixels from the first row. Nothing here calls back but the comparison of Sort.

#include "framework/vtree/nodepool_rules.h"
#include "framework/vtree/virtualnode_rules.h"

#include <functional>
#include <list>
#include <memory>
#include <vector>

namespace framework {

/// What a node adds to its family, or all nodes of a block together. Branches below count for their uppermost node.
struct TNodeSums {
    std::int64_t Height = 0; ///< pixels of the rows
    std::int32_t Rows = 0;
    std::int32_t Nodes = 0;
    std::int32_t Selected = 0;    ///< whether they show or not
    std::int32_t Initialized = 0; ///< the same

    TNodeSums& operator+=(const TNodeSums& other);
    TNodeSums& operator-=(const TNodeSums& other);
    friend bool operator==(const TNodeSums&, const TNodeSums&) = default;
};

/// Which of the sums a search or a walk goes by. Nodes serves walks alone: it counts siblings, not what is below them.
enum class TNodeMeasure { Nodes, Rows, Height, Selected, Initialized };

struct TNodeBlock {
    TNodeFamily* Family = nullptr;
    std::uint32_t Place = 0; // in the family
    TNodeSums Sums;
    std::vector<TVirtualNode*> Nodes;
};

/// The children of one node.
struct TNodeFamily {
    TVirtualNode* Parent = nullptr;
    std::vector<std::unique_ptr<TNodeBlock>> Blocks;
    std::vector<TNodeSums> Running; // a binary indexed tree over the sums of the blocks
    TNodeSums Total;

    static TNodeSums OwnSums(const TVirtualNode& node);
    static TNodeSums SumsOf(const TVirtualNode& node);

    void InsertBlock(std::size_t place, std::unique_ptr<TNodeBlock> block);
    /// Numbers blocks and running sums anew from this block on.
    void Reindex(std::size_t place);
    void AddSums(std::size_t place, const TNodeSums& change);
    TNodeSums SumsBefore(std::size_t place) const;
};

/// Nodes that have left the tree and wait to be freed. They belong to the store.
class TDetachedNodes {
public:
    /// Those that were initialised, each behind its children, until `visit` answers false; then this object may have
    /// gone with its store.
    void VisitInitialized(const std::function<bool(TVirtualNode*)>& visit) const;

private:
    friend class TNodeStore;
    std::vector<std::unique_ptr<TNodeBlock>> FBlocks;
};

/// A pointer to a node that becomes null when the node leaves its tree. Make it before a callback, as TLifeGuard; the
/// store must outlive it or have been told to forget it (TNodeStore's destructor does).
class TNodeRef {
public:
    TNodeRef() = default;
    TNodeRef(class TNodeStore& store, TVirtualNode* node = nullptr);
    TNodeRef(const TNodeRef&) = delete;
    TNodeRef& operator=(const TNodeRef&) = delete;
    ~TNodeRef();

    TVirtualNode* Get() const { return FNode; }
    void Set(TVirtualNode* node) { FNode = node; }
    explicit operator bool() const { return FNode != nullptr; }

private:
    friend class TNodeStore;
    TNodeStore* FStore = nullptr;
    TVirtualNode* FNode = nullptr;
    TNodeRef* FNext = nullptr;
    TNodeRef* FPrevious = nullptr;
};

class TNodeStore {
public:
    explicit TNodeStore(std::size_t dataSize = 0);
    TNodeStore(const TNodeStore&) = delete;
    TNodeStore& operator=(const TNodeStore&) = delete;
    ~TNodeStore();

    /// The invisible node above all others.
    TVirtualNode* Root() { return &FRoot; }
    const TVirtualNode* Root() const { return &FRoot; }
    /// Bytes of application data in each node. There must be no nodes.
    void SetDataSize(std::size_t value);
    /// Nodes in memory, the root not counted, those that wait to be freed among them.
    std::size_t Count() const { return FPool.Count(); }
    std::size_t Bytes() const { return FPool.Bytes(); }
    const TNodeSums& Total() const;

    // Coming and going
    /// Fills the data of a new node, the n-th of those that come together.
    using TFill = std::function<void(TVirtualNode* node, unsigned n)>;
    /// New nodes behind the last child, `height` pixels each; the first of them, or null for a count of 0. `fill` must
    /// not raise.
    TVirtualNode* Append(TVirtualNode* parent, unsigned count, int height, const TFill& fill = {});
    /// One new node; an index beyond the last child puts it behind that.
    TVirtualNode* Insert(TVirtualNode* parent, unsigned index, int height);
    /// Takes children with all that is below them out of the tree. References to any of them become null; their memory
    /// stays until FreeDetached, so that handlers which are told of them can look at them and their parents.
    TDetachedNodes& Detach(TVirtualNode* parent, unsigned first, unsigned count);
    void FreeDetached();
    /// False for nodes that have been detached, and what is below them.
    bool Contains(const TVirtualNode* node) const;

    // States. Each of these keeps the sums right; the pure flags of SetState do not touch them.
    void SetState(TVirtualNode* node, TVirtualNodeStateElement state, bool present);
    void SetHeight(TVirtualNode* node, int pixels);
    static void SetCheck(TVirtualNode* node, TCheckType type, TCheckState state);

    // Places
    static std::int64_t PlaceOf(const TVirtualNode* node, TNodeMeasure measure);
    /// The node whose own share of the measure covers `place`, and with `start` where that share begins; null beyond
    /// the end. Nodes in collapsed or hidden branches have no share of rows and heights.
    TVirtualNode* NodeAt(std::int64_t place, TNodeMeasure measure, std::int64_t* start = nullptr) const;
    static TVirtualNode* Child(const TVirtualNode* parent, unsigned index);
    static unsigned Level(const TVirtualNode* node);
    static bool IsWithin(const TVirtualNode* node, const TVirtualNode* ancestor);
    /// Whether nobody above hides it: all ancestors are expanded, it and they are visible.
    static bool IsRow(const TVirtualNode* node);

    // Walks through the tree in order, by Nodes through all, by Rows through those that show, and so on
    TVirtualNode* First(TNodeMeasure measure) const;
    TVirtualNode* Last(TNodeMeasure measure) const;
    TVirtualNode* Next(const TVirtualNode* node, TNodeMeasure measure) const;
    TVirtualNode* Previous(const TVirtualNode* node, TNodeMeasure measure) const;

    /// True when the first node comes before the second one; equal ones keep their order.
    using TLess = std::function<bool(TVirtualNode*, TVirtualNode*)>;
    /// Orders the children of one node. `less` may answer nonsense, then the order is nonsense, too; it must not change
    /// the tree. When it raises, the order is as before.
    void Sort(TVirtualNode* parent, const TLess& less);
    /// The same by numbers, each asked for once: quicker where there are any.
    using TKey = std::function<std::uint64_t(TVirtualNode*)>;
    void SortByKey(TVirtualNode* parent, const TKey& key);

private:
    friend class TNodeRef;
    friend class TDetachedNodes;

    TVirtualNode* NewNode(TVirtualNode* parent, int height);
    TNodeFamily& FamilyOf(TVirtualNode* parent);
    void FreeBlocks(std::vector<std::unique_ptr<TNodeBlock>> blocks);
    static std::vector<TVirtualNode*> ChildrenInOrder(const TVirtualNode* parent);
    static void Arrange(TVirtualNode* parent, const std::vector<TVirtualNode*>& nodes);
    static void NumberNodes(TNodeBlock& block, std::size_t slot);
    static TNodeBlock& Split(TNodeBlock& block, std::size_t& slot);
    static std::vector<std::unique_ptr<TNodeBlock>> CutOut(TNodeFamily& family, unsigned first, unsigned count);
    void ForgetReferences(const TVirtualNode* parent, unsigned first, unsigned count);
    static const TNodeFamily* ChildrenOf(const TVirtualNode* node) { return node->FFamily; }
    static TVirtualNode* FirstIn(const TNodeFamily* family, TNodeMeasure measure);
    static TVirtualNode* LastFrom(TVirtualNode* node, TNodeMeasure measure);
    static void Propagate(TVirtualNode* parent, TNodeSums change);
    template <class TChange>
    static void Change(TVirtualNode* node, TChange change);

    TNodePool FPool;
    std::size_t FDataSize;
    TVirtualNode FRoot;
    std::size_t FFamilies = 0; // below the root, detached ones among them
    std::list<TDetachedNodes> FDetached;
    TNodeRef* FReferences = nullptr;
};

} // namespace framework
