#include "framework/vtree/nodestore_rules.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <new>
#include <utility>

namespace framework {

namespace {

constexpr std::size_t kBlockSize = 256; // nodes; fewer make more sums, more make longer searches within a block

std::int64_t Part(const TNodeSums& sums, TNodeMeasure measure) {
    switch (measure) {
    case TNodeMeasure::Rows:
        return sums.Rows;
    case TNodeMeasure::Height:
        return sums.Height;
    case TNodeMeasure::Selected:
        return sums.Selected;
    case TNodeMeasure::Initialized:
        return sums.Initialized;
    default:
        return sums.Nodes;
    }
}

} // namespace

// Sums

TNodeSums& TNodeSums::operator+=(const TNodeSums& other) {
    Height += other.Height;
    Rows += other.Rows;
    Nodes += other.Nodes;
    Selected += other.Selected;
    Initialized += other.Initialized;
    return *this;
}

TNodeSums& TNodeSums::operator-=(const TNodeSums& other) {
    Height -= other.Height;
    Rows -= other.Rows;
    Nodes -= other.Nodes;
    Selected -= other.Selected;
    Initialized -= other.Initialized;
    return *this;
}

TNodeSums TNodeFamily::OwnSums(const TVirtualNode& node) {
    TNodeSums sums;
    sums.Nodes = 1;
    if (node.ShowsRow()) {
        sums.Rows = 1;
        sums.Height = node.FHeight;
    }
    sums.Selected = node.Has(vsSelected) ? 1 : 0;
    sums.Initialized = node.Has(vsInitialized) ? 1 : 0;
    return sums;
}

TNodeSums TNodeFamily::SumsOf(const TVirtualNode& node) {
    TNodeSums sums = OwnSums(node);
    if (const TNodeFamily* below = node.FFamily) {
        sums.Selected += below->Total.Selected;
        sums.Initialized += below->Total.Initialized;
        if (node.ShowsRow() && node.Has(vsExpanded)) {
            sums.Rows += below->Total.Rows;
            sums.Height += below->Total.Height;
        }
    }
    return sums;
}

namespace {

/// What lies below a node as far as it counts for the measure. Walks by Nodes go through everything.
std::int64_t Below(const TVirtualNode& node, TNodeMeasure measure) {
    if (measure == TNodeMeasure::Nodes)
        return node.GetChildCount();
    return Part(TNodeFamily::SumsOf(node), measure) - Part(TNodeFamily::OwnSums(node), measure);
}

std::int64_t Own(const TVirtualNode& node, TNodeMeasure measure) {
    return Part(TNodeFamily::OwnSums(node), measure);
}

std::int64_t Whole(const TVirtualNode& node, TNodeMeasure measure) {
    return Part(TNodeFamily::SumsOf(node), measure);
}

TNodeSums SumsOfNodes(const std::vector<TVirtualNode*>& nodes) {
    TNodeSums sums;
    for (const TVirtualNode* node : nodes)
        sums += TNodeFamily::SumsOf(*node);
    return sums;
}

/// The block in which the running sum passes `place`, which becomes the place within that block; the number of blocks
/// when there is none.
std::size_t FindBlock(const TNodeFamily& family, std::int64_t& place, TNodeMeasure measure) {
    const std::size_t count = family.Blocks.size();
    std::size_t step = 1;
    while (step * 2 <= count)
        step *= 2;
    std::size_t found = 0;
    for (; step > 0; step /= 2) {
        if (found + step > count)
            continue;
        const std::int64_t sum = Part(family.Running[found + step - 1], measure);
        if (sum <= place) {
            found += step;
            place -= sum;
        }
    }
    return found;
}

} // namespace

void TNodeFamily::InsertBlock(std::size_t place, std::unique_ptr<TNodeBlock> block) {
    block->Family = this;
    Total += block->Sums;
    Blocks.insert(Blocks.begin() + static_cast<std::ptrdiff_t>(place), std::move(block));
    Reindex(place);
}

void TNodeFamily::Reindex(std::size_t place) {
    Running.resize(place);
    for (std::size_t i = place; i < Blocks.size(); ++i) {
        Blocks[i]->Place = static_cast<std::uint32_t>(i);
        TNodeSums sums = Blocks[i]->Sums;
        const std::size_t last = i + 1;
        for (std::size_t step = 1; step < (last & (~last + 1)); step *= 2)
            sums += Running[last - step - 1];
        Running.push_back(sums);
    }
}

void TNodeFamily::AddSums(std::size_t place, const TNodeSums& change) {
    Blocks[place]->Sums += change;
    Total += change;
    for (std::size_t i = place + 1; i <= Blocks.size(); i += i & (~i + 1))
        Running[i - 1] += change;
}

TNodeSums TNodeFamily::SumsBefore(std::size_t place) const {
    TNodeSums sums;
    for (std::size_t i = place; i > 0; i &= i - 1)
        sums += Running[i - 1];
    return sums;
}

// Nodes

TVirtualNode* TVirtualNode::GetFirstChild() const {
    return FFamily && !FFamily->Blocks.empty() ? FFamily->Blocks.front()->Nodes.front() : nullptr;
}

TVirtualNode* TVirtualNode::GetLastChild() const {
    return FFamily && !FFamily->Blocks.empty() ? FFamily->Blocks.back()->Nodes.back() : nullptr;
}

TVirtualNode* TVirtualNode::GetPrevSibling() const {
    if (!FBlock)
        return nullptr;
    if (FSlot > 0)
        return FBlock->Nodes[FSlot - 1u];
    return FBlock->Place > 0 ? FBlock->Family->Blocks[FBlock->Place - 1]->Nodes.back() : nullptr;
}

TVirtualNode* TVirtualNode::GetNextSibling() const {
    if (!FBlock)
        return nullptr;
    if (FSlot + 1u < FBlock->Nodes.size())
        return FBlock->Nodes[FSlot + 1u];
    const auto& blocks = FBlock->Family->Blocks;
    return FBlock->Place + 1 < blocks.size() ? blocks[FBlock->Place + 1]->Nodes.front() : nullptr;
}

unsigned TVirtualNode::GetIndex() const {
    return FBlock ? static_cast<unsigned>(FBlock->Family->SumsBefore(FBlock->Place).Nodes) + FSlot : 0;
}

unsigned TVirtualNode::GetChildCount() const {
    return FFamily ? static_cast<unsigned>(FFamily->Total.Nodes) : 0;
}

// References

TNodeRef::TNodeRef(TNodeStore& store, TVirtualNode* node) : FStore(&store), FNode(node), FNext(store.FReferences) {
    if (FNext)
        FNext->FPrevious = this;
    store.FReferences = this;
}

TNodeRef::~TNodeRef() {
    if (!FStore)
        return;
    (FPrevious ? FPrevious->FNext : FStore->FReferences) = FNext;
    if (FNext)
        FNext->FPrevious = FPrevious;
}

void TNodeStore::ForgetReferences(const TVirtualNode* parent, unsigned first, unsigned count) {
    for (TNodeRef* each = FReferences; each; each = each->FNext) {
        const TVirtualNode* node = each->FNode;
        while (node && node->FParent != parent)
            node = node->FParent;
        if (!node)
            continue;
        const unsigned index = node->GetIndex();
        if (index >= first && index - first < count)
            each->FNode = nullptr;
    }
}

// The store

TNodeStore::TNodeStore(std::size_t dataSize) : FPool(sizeof(TVirtualNode) + dataSize), FDataSize(dataSize) {
    FRoot.FStates << vsExpanded << vsInitialized << vsHasChildren;
}

TNodeStore::~TNodeStore() {
    for (TNodeRef* each = FReferences; each; each = each->FNext) {
        each->FStore = nullptr;
        each->FNode = nullptr;
    }
    Detach(&FRoot, 0, FRoot.GetChildCount());
    FreeDetached();
    delete FRoot.FFamily;
}

void TNodeStore::SetDataSize(std::size_t value) {
    FDataSize = value;
    FPool.SetCellSize(sizeof(TVirtualNode) + value);
}

const TNodeSums& TNodeStore::Total() const {
    static const TNodeSums none;
    return FRoot.FFamily ? FRoot.FFamily->Total : none;
}

TVirtualNode* TNodeStore::NewNode(TVirtualNode* parent, int height) {
    const TNodePool::TCell cell = FPool.Allocate();
    auto* node = new (cell.Memory) TVirtualNode;
    node->FParent = parent;
    node->FHeight = height;
    node->FChunk = cell.Chunk;
    if (FDataSize > 0)
        std::memset(node->GetData(), 0, FDataSize);
    return node;
}

TNodeFamily& TNodeStore::FamilyOf(TVirtualNode* parent) {
    if (!parent->FFamily) {
        parent->FFamily = new TNodeFamily;
        parent->FFamily->Parent = parent;
        if (parent != &FRoot)
            ++FFamilies;
    }
    parent->FStates << vsHasChildren;
    return *parent->FFamily;
}

/// Carries a change of a family's sums to the families above it.
void TNodeStore::Propagate(TVirtualNode* parent, TNodeSums change) {
    change.Nodes = 0;
    for (TVirtualNode* node = parent; node && node->FBlock; node = node->FParent) {
        if (!node->ShowsRow() || !node->Has(vsExpanded)) {
            change.Rows = 0;
            change.Height = 0;
        }
        if (change == TNodeSums{})
            return;
        node->FBlock->Family->AddSums(node->FBlock->Place, change);
    }
}

TVirtualNode* TNodeStore::Append(TVirtualNode* parent, unsigned count, int height, const TFill& fill) {
    TVirtualNode* first = nullptr;
    unsigned filled = 0;
    if (count == 0)
        return first;
    TNodeFamily& family = FamilyOf(parent);
    TNodeSums added;
    while (count > 0) {
        if (family.Blocks.empty() || family.Blocks.back()->Nodes.size() >= kBlockSize)
            family.InsertBlock(family.Blocks.size(), std::make_unique<TNodeBlock>());
        TNodeBlock& block = *family.Blocks.back();
        const auto fit = std::min<std::size_t>(count, kBlockSize - block.Nodes.size());
        if (fit > 1 || family.Blocks.size() > 1)
            block.Nodes.reserve(family.Blocks.size() > 1 ? kBlockSize : block.Nodes.size() + fit);
        for (std::size_t i = 0; i < fit; ++i) {
            TVirtualNode* node = NewNode(parent, height);
            node->FBlock = &block;
            node->FSlot = static_cast<std::uint16_t>(block.Nodes.size());
            block.Nodes.push_back(node);
            first = first ? first : node;
            if (fill)
                fill(node, filled++);
        }
        TNodeSums sums;
        sums.Nodes = sums.Rows = static_cast<std::int32_t>(fit);
        sums.Height = static_cast<std::int64_t>(fit) * height;
        family.AddSums(block.Place, sums);
        added += sums;
        count -= static_cast<unsigned>(fit);
    }
    Propagate(parent, added);
    return first;
}

/// Tells the nodes of a block where they are, from one slot on.
void TNodeStore::NumberNodes(TNodeBlock& block, std::size_t slot) {
    for (std::size_t i = slot; i < block.Nodes.size(); ++i) {
        block.Nodes[i]->FBlock = &block;
        block.Nodes[i]->FSlot = static_cast<std::uint16_t>(i);
    }
}

/// Makes two of a full block; `slot` and the answer say where its place is now.
TNodeBlock& TNodeStore::Split(TNodeBlock& block, std::size_t& slot) {
    auto added = std::make_unique<TNodeBlock>();
    TNodeBlock& upper = *added;
    const auto half = block.Nodes.begin() + static_cast<std::ptrdiff_t>(block.Nodes.size() / 2);
    upper.Nodes.assign(half, block.Nodes.end());
    block.Nodes.erase(half, block.Nodes.end());
    NumberNodes(upper, 0);
    upper.Sums = SumsOfNodes(upper.Nodes);
    TNodeFamily& family = *block.Family;
    family.AddSums(block.Place, TNodeSums{} -= upper.Sums);
    family.InsertBlock(block.Place + 1, std::move(added));
    if (slot < block.Nodes.size())
        return block;
    slot -= block.Nodes.size();
    return upper;
}

TVirtualNode* TNodeStore::Insert(TVirtualNode* parent, unsigned index, int height) {
    const TVirtualNode* at = Child(parent, index);
    if (!at)
        return Append(parent, 1, height);
    std::size_t slot = at->FSlot;
    TNodeBlock* block = at->FBlock;
    if (block->Nodes.size() >= kBlockSize)
        block = &Split(*block, slot);
    TVirtualNode* node = NewNode(parent, height);
    block->Nodes.insert(block->Nodes.begin() + static_cast<std::ptrdiff_t>(slot), node);
    NumberNodes(*block, slot);
    const TNodeSums sums = TNodeFamily::SumsOf(*node);
    block->Family->AddSums(block->Place, sums);
    Propagate(parent, sums);
    return node;
}

/// Takes children out of their family: whole blocks as they are, the first and the last one in part. The family's sums
/// follow, those above it do not.
std::vector<std::unique_ptr<TNodeBlock>> TNodeStore::CutOut(TNodeFamily& family, unsigned first, unsigned count) {
    std::vector<std::unique_ptr<TNodeBlock>> cut;
    std::int64_t from = first;
    std::size_t place = FindBlock(family, from, TNodeMeasure::Nodes);
    auto slot = static_cast<std::size_t>(from);
    const std::size_t firstWhole = place + (slot > 0 ? 1 : 0);
    std::size_t whole = 0;
    for (; count > 0; ++place, slot = 0) {
        TNodeBlock& block = *family.Blocks[place];
        const auto taken = std::min<std::size_t>(count, block.Nodes.size() - slot);
        count -= static_cast<unsigned>(taken);
        if (taken == block.Nodes.size()) {
            family.Total -= block.Sums;
            cut.push_back(std::move(family.Blocks[place]));
            ++whole;
            continue;
        }
        auto part = std::make_unique<TNodeBlock>();
        const auto begin = block.Nodes.begin() + static_cast<std::ptrdiff_t>(slot);
        const auto end = begin + static_cast<std::ptrdiff_t>(taken);
        part->Nodes.assign(begin, end);
        part->Sums = SumsOfNodes(part->Nodes);
        block.Nodes.erase(begin, end);
        NumberNodes(block, slot);
        family.AddSums(place, TNodeSums{} -= part->Sums);
        cut.push_back(std::move(part));
    }
    if (whole > 0) {
        const auto begin = family.Blocks.begin() + static_cast<std::ptrdiff_t>(firstWhole);
        family.Blocks.erase(begin, begin + static_cast<std::ptrdiff_t>(whole));
        family.Reindex(firstWhole);
    }
    return cut;
}

TDetachedNodes& TNodeStore::Detach(TVirtualNode* parent, unsigned first, unsigned count) {
    TDetachedNodes& detached = FDetached.emplace_back();
    const unsigned children = parent->GetChildCount();
    if (first >= children || count == 0)
        return detached;
    count = std::min(count, children - first);
    ForgetReferences(parent, first, count);
    TNodeFamily& family = *parent->FFamily;
    const TNodeSums before = family.Total;
    detached.FBlocks = CutOut(family, first, count);
    Propagate(parent, TNodeSums(family.Total) -= before);
    for (const auto& block : detached.FBlocks) {
        block->Family = nullptr;
        for (TVirtualNode* node : block->Nodes) {
            node->FBlock = nullptr;
            node->FStates << vsDeleting;
        }
    }
    if (count == children && parent != &FRoot) {
        delete std::exchange(parent->FFamily, nullptr);
        --FFamilies;
        parent->FStates >> vsHasChildren;
    }
    return detached;
}

void TNodeStore::FreeDetached() {
    if (FRoot.GetChildCount() == 0 && FFamilies == 0)
        FPool.Clear(); // all that there is goes, and no node owns anything
    else
        for (TDetachedNodes& each : FDetached)
            FreeBlocks(std::move(each.FBlocks));
    FDetached.clear();
}

/// Not by recursion: a branch may be deeper than the stack.
void TNodeStore::FreeBlocks(std::vector<std::unique_ptr<TNodeBlock>> blocks) {
    while (!blocks.empty()) {
        const std::unique_ptr<TNodeBlock> block = std::move(blocks.back());
        blocks.pop_back();
        for (TVirtualNode* node : block->Nodes) {
            if (TNodeFamily* family = node->FFamily) {
                std::move(family->Blocks.begin(), family->Blocks.end(), std::back_inserter(blocks));
                delete family;
                --FFamilies;
            }
            FPool.Free(node, node->FChunk);
        }
    }
}

bool TNodeStore::Contains(const TVirtualNode* node) const {
    while (node && node->FBlock)
        node = node->FParent;
    return node == &FRoot;
}

void TDetachedNodes::VisitInitialized(const std::function<bool(TVirtualNode*)>& visit) const {
    using TBlocks = std::vector<std::unique_ptr<TNodeBlock>>;
    struct TPlace {
        const TBlocks* Blocks;
        std::size_t Block = 0;
        std::size_t Slot = 0;
        bool ChildrenDone = false; // those of the node in the slot
    };
    std::vector<TPlace> trail{{&FBlocks}};
    while (!trail.empty()) {
        TPlace& place = trail.back();
        if (place.Block == place.Blocks->size()) {
            trail.pop_back();
            if (!trail.empty())
                trail.back().ChildrenDone = true;
            continue;
        }
        const TNodeBlock& block = *(*place.Blocks)[place.Block];
        if (block.Sums.Initialized == 0 || place.Slot == block.Nodes.size()) {
            ++place.Block;
            place.Slot = 0;
            continue;
        }
        TVirtualNode* node = block.Nodes[place.Slot];
        const TNodeFamily* family = TNodeStore::ChildrenOf(node);
        if (!place.ChildrenDone && family && family->Total.Initialized > 0) {
            trail.push_back({&family->Blocks});
            continue;
        }
        place.ChildrenDone = false;
        ++place.Slot;
        if (node->Has(vsInitialized) && !visit(node))
            return;
    }
}

// States

template <class TChange>
void TNodeStore::Change(TVirtualNode* node, TChange change) {
    const TNodeSums before = TNodeFamily::SumsOf(*node);
    change();
    const TNodeSums difference = TNodeFamily::SumsOf(*node) -= before;
    if (!node->FBlock || difference == TNodeSums{})
        return;
    TNodeBlock& block = *node->FBlock;
    if (block.Family) {
        block.Family->AddSums(block.Place, difference);
        Propagate(node->FParent, difference);
    }
}

void TNodeStore::SetState(TVirtualNode* node, TVirtualNodeStateElement state, bool present) {
    if (node->Has(state) == present)
        return;
    Change(node, [&] {
        if (present)
            node->FStates << state;
        else
            node->FStates >> state;
    });
}

void TNodeStore::SetHeight(TVirtualNode* node, int pixels) {
    Change(node, [&] { node->FHeight = pixels; });
}

void TNodeStore::SetCheck(TVirtualNode* node, TCheckType type, TCheckState state) {
    node->FCheckType = static_cast<std::uint8_t>(type);
    node->FCheckState = static_cast<std::uint8_t>(state);
}

// Places

std::int64_t TNodeStore::PlaceOf(const TVirtualNode* node, TNodeMeasure measure) {
    std::int64_t place = 0;
    for (; node->FBlock; node = node->FParent) {
        const TNodeBlock& block = *node->FBlock;
        place += Part(block.Family->SumsBefore(block.Place), measure);
        for (std::size_t i = 0; i < node->FSlot; ++i)
            place += Whole(*block.Nodes[i], measure);
        if (node->FParent->FBlock)
            place += Own(*node->FParent, measure);
    }
    return place;
}

TVirtualNode* TNodeStore::NodeAt(std::int64_t place, TNodeMeasure measure, std::int64_t* start) const {
    const TNodeFamily* family = FRoot.FFamily;
    std::int64_t rest = place;
    while (family && rest >= 0) {
        const std::size_t found = FindBlock(*family, rest, measure);
        if (found == family->Blocks.size())
            return nullptr;
        TVirtualNode* node = nullptr;
        for (TVirtualNode* each : family->Blocks[found]->Nodes) {
            node = each;
            const std::int64_t whole = Whole(*each, measure);
            if (rest < whole)
                break;
            rest -= whole;
        }
        const std::int64_t own = Own(*node, measure);
        if (rest < own) {
            if (start)
                *start = place - rest;
            return node;
        }
        rest -= own;
        family = node->FFamily;
    }
    return nullptr;
}

TVirtualNode* TNodeStore::Child(const TVirtualNode* parent, unsigned index) {
    if (index >= parent->GetChildCount())
        return nullptr;
    std::int64_t rest = index;
    const std::size_t found = FindBlock(*parent->FFamily, rest, TNodeMeasure::Nodes);
    return parent->FFamily->Blocks[found]->Nodes[static_cast<std::size_t>(rest)];
}

unsigned TNodeStore::Level(const TVirtualNode* node) {
    unsigned level = 0;
    for (; node->FParent && node->FParent->FBlock; node = node->FParent)
        ++level;
    return level;
}

bool TNodeStore::IsWithin(const TVirtualNode* node, const TVirtualNode* ancestor) {
    while (node && node != ancestor && node->FBlock)
        node = node->FParent;
    return node == ancestor;
}

bool TNodeStore::IsRow(const TVirtualNode* node) {
    for (bool first = true; node->FBlock; node = node->FParent, first = false) {
        if (!node->ShowsRow() || (!first && !node->Has(vsExpanded)))
            return false;
    }
    return true;
}

// Walks

namespace {

/// The first node of a block, from one slot on, that has a share of the measure.
TVirtualNode* FirstOf(const TNodeBlock& block, std::size_t slot, TNodeMeasure measure) {
    for (; slot < block.Nodes.size(); ++slot) {
        if (Whole(*block.Nodes[slot], measure) > 0)
            return block.Nodes[slot];
    }
    return nullptr;
}

TVirtualNode* LastOf(const TNodeBlock& block, std::size_t slots, TNodeMeasure measure) {
    while (slots-- > 0) {
        if (Whole(*block.Nodes[slots], measure) > 0)
            return block.Nodes[slots];
    }
    return nullptr;
}

/// The child at which the running sum passes `place`, given that there is one.
TVirtualNode* ChildWith(const TNodeFamily& family, std::int64_t place, TNodeMeasure measure) {
    const std::size_t found = FindBlock(family, place, measure);
    return found == family.Blocks.size() ? nullptr : FirstOf(*family.Blocks[found], 0, measure);
}

TVirtualNode* LastChildWith(const TNodeFamily& family, std::int64_t before, TNodeMeasure measure) {
    if (before <= 0)
        return nullptr;
    std::int64_t place = before - 1;
    const std::size_t found = FindBlock(family, place, measure);
    const TNodeBlock& block = *family.Blocks[found];
    return LastOf(block, block.Nodes.size(), measure);
}

} // namespace

TVirtualNode* TNodeStore::FirstIn(const TNodeFamily* family, TNodeMeasure measure) {
    TVirtualNode* node = family ? ChildWith(*family, 0, measure) : nullptr;
    while (node && Own(*node, measure) == 0)
        node = ChildWith(*node->FFamily, 0, measure);
    return node;
}

TVirtualNode* TNodeStore::LastFrom(TVirtualNode* node, TNodeMeasure measure) {
    while (node && Below(*node, measure) > 0)
        node = LastChildWith(*node->FFamily, Part(node->FFamily->Total, measure), measure);
    return node;
}

TVirtualNode* TNodeStore::First(TNodeMeasure measure) const {
    return FirstIn(FRoot.FFamily, measure);
}

TVirtualNode* TNodeStore::Last(TNodeMeasure measure) const {
    if (!FRoot.FFamily)
        return nullptr;
    return LastFrom(LastChildWith(*FRoot.FFamily, Part(FRoot.FFamily->Total, measure), measure), measure);
}

TVirtualNode* TNodeStore::Next(const TVirtualNode* node, TNodeMeasure measure) const {
    if (Below(*node, measure) > 0)
        return FirstIn(node->FFamily, measure);
    for (; node->FBlock; node = node->FParent) {
        const TNodeBlock& block = *node->FBlock;
        TVirtualNode* next = FirstOf(block, node->FSlot + std::size_t{1}, measure);
        if (!next)
            next = ChildWith(*block.Family, Part(block.Family->SumsBefore(block.Place + std::size_t{1}), measure),
                             measure);
        if (next)
            return Own(*next, measure) > 0 ? next : FirstIn(next->FFamily, measure);
    }
    return nullptr;
}

TVirtualNode* TNodeStore::Previous(const TVirtualNode* node, TNodeMeasure measure) const {
    for (; node->FBlock; node = node->FParent) {
        const TNodeBlock& block = *node->FBlock;
        TVirtualNode* previous = LastOf(block, node->FSlot, measure);
        if (!previous)
            previous = LastChildWith(*block.Family, Part(block.Family->SumsBefore(block.Place), measure), measure);
        if (previous)
            return LastFrom(previous, measure);
        TVirtualNode* parent = node->FParent;
        if (parent->FBlock && Own(*parent, measure) > 0)
            return parent;
    }
    return nullptr;
}

// Order

namespace {

constexpr std::size_t kShortRun = 8; // nodes that are put in order by insertion

void InsertionSort(TVirtualNode** first, TVirtualNode** last, const TNodeStore::TLess& less) {
    for (TVirtualNode** next = first + 1; next < last; ++next) {
        TVirtualNode* node = *next;
        TVirtualNode** place = next;
        for (; place > first && less(node, place[-1]); --place)
            *place = place[-1];
        *place = node;
    }
}

void Merge(TVirtualNode** left, TVirtualNode** middle, TVirtualNode** end, TVirtualNode** merged,
           const TNodeStore::TLess& less) {
    if (middle == end || !less(*middle, middle[-1])) { // in order already
        std::copy(left, end, merged);
        return;
    }
    TVirtualNode** right = middle;
    while (left != middle && right != end)
        *merged++ = less(*right, *left) ? *right++ : *left++;
    merged = std::copy(left, middle, merged);
    std::copy(right, end, merged);
}

/// A stable sort that keeps within bounds whatever `less` answers: programs' comparisons are not always orders.
void MergeSort(std::vector<TVirtualNode*>& nodes, const TNodeStore::TLess& less) {
    const std::size_t count = nodes.size();
    for (std::size_t low = 0; low < count; low += kShortRun)
        InsertionSort(nodes.data() + low, nodes.data() + std::min(low + kShortRun, count), less);
    std::vector<TVirtualNode*> merged(count);
    for (std::size_t width = kShortRun; width < count; width *= 2) {
        for (std::size_t low = 0; low < count; low += 2 * width) {
            const std::size_t middle = std::min(low + width, count);
            const std::size_t high = std::min(low + 2 * width, count);
            Merge(nodes.data() + low, nodes.data() + middle, nodes.data() + high, merged.data() + low, less);
        }
        nodes.swap(merged);
    }
}

} // namespace

std::vector<TVirtualNode*> TNodeStore::ChildrenInOrder(const TVirtualNode* parent) {
    std::vector<TVirtualNode*> nodes;
    nodes.reserve(parent->GetChildCount());
    if (parent->FFamily) {
        for (const auto& block : parent->FFamily->Blocks)
            nodes.insert(nodes.end(), block->Nodes.begin(), block->Nodes.end());
    }
    return nodes;
}

void TNodeStore::Sort(TVirtualNode* parent, const TLess& less) {
    std::vector<TVirtualNode*> nodes = ChildrenInOrder(parent);
    MergeSort(nodes, less);
    Arrange(parent, nodes);
}

void TNodeStore::SortByKey(TVirtualNode* parent, const TKey& key) {
    struct TKeyed {
        std::uint64_t Key;
        TVirtualNode* Node;
    };
    std::vector<TVirtualNode*> nodes = ChildrenInOrder(parent);
    std::vector<TKeyed> keyed;
    keyed.reserve(nodes.size());
    for (TVirtualNode* node : nodes)
        keyed.push_back({key(node), node});
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const TKeyed& left, const TKeyed& right) { return left.Key < right.Key; });
    std::transform(keyed.begin(), keyed.end(), nodes.begin(), [](const TKeyed& each) { return each.Node; });
    Arrange(parent, nodes);
}

/// Puts the children into this order.
void TNodeStore::Arrange(TVirtualNode* parent, const std::vector<TVirtualNode*>& nodes) {
    if (nodes.empty())
        return;
    TNodeFamily& family = *parent->FFamily;
    auto next = nodes.begin();
    for (const auto& block : family.Blocks) {
        const auto end = next + static_cast<std::ptrdiff_t>(block->Nodes.size());
        block->Nodes.assign(next, end);
        NumberNodes(*block, 0);
        block->Sums = SumsOfNodes(block->Nodes);
        next = end;
    }
    family.Reindex(0);
}

} // namespace framework
