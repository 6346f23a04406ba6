#pragma once

// Who is told of events: a list whose members may leave, die or join while it is being told, as may its own holder.

#include <algorithm>
#include <memory>
#include <vector>

namespace framework {

/// Pointers to objects that are told of events. It does not own them; each takes itself out before it dies.
template <class T>
class TNotifyList {
public:
    TNotifyList() = default;
    TNotifyList(const TNotifyList&) = delete;
    TNotifyList& operator=(const TNotifyList&) = delete;
    ~TNotifyList() { FState->HolderIsGone = true; }

    bool IsEmpty() const { return FState->Members.empty(); }
    void Add(T* member) { FState->Members.push_back(member); }
    void Remove(T* member) {
        auto& members = FState->Members;
        const auto found = std::find(members.begin(), members.end(), member);
        if (found == members.end())
            return;
        if (FState->Telling > 0)
            *found = nullptr;
        else
            members.erase(found);
    }

    /// Calls `body` for each member that was there at the beginning and still is when its turn comes; it ends when the
    /// holder of the list dies.
    template <class TBody>
    void Tell(TBody&& body) const {
        if (IsEmpty())
            return;
        const TTelling telling(FState);
        for (std::size_t i = 0, count = FState->Members.size(); i < count; ++i) {
            if (T* member = telling.State->Members[i])
                body(*member);
            if (telling.State->HolderIsGone)
                return;
        }
    }

private:
    struct TState {
        std::vector<T*> Members;
        int Telling = 0;
        bool HolderIsGone = false;
    };
    struct TTelling {
        explicit TTelling(std::shared_ptr<TState> state) : State(std::move(state)) { ++State->Telling; }
        TTelling(const TTelling&) = delete;
        TTelling& operator=(const TTelling&) = delete;
        ~TTelling() {
            if (--State->Telling == 0)
                std::erase(State->Members, nullptr);
        }
        std::shared_ptr<TState> State;
    };

    std::shared_ptr<TState> FState = std::make_shared<TState>();
};

} // namespace framework
