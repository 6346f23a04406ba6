#pragma once

// What fonts, pens and brushes have in common: they tell of changes, and objects that look the same share one GDI
// handle.

#include "framework/graphics/win32.h"
#include "framework/system/objects.h"

#include <map>
#include <memory>
#include <mutex>
#include <type_traits>

namespace framework {

/// A GDI handle among several users; the last one deletes it. Keep one for as long as the handle is selected into a
/// device context or set as a window's font: its font, pen or brush may change meanwhile.
template <class THandle>
using TSharedHandle = std::shared_ptr<std::remove_pointer_t<THandle>>;

/// The handles in use by what they look like. Any thread may ask.
template <class THandle, class TKey>
class THandleCache {
public:
    /// The handle for `key`; `make` creates it when nobody has it yet. EOutOfResources when that fails.
    template <class TMaker>
    TSharedHandle<THandle> Get(const TKey& key, TMaker make) {
        const std::lock_guard lock(FMutex);
        std::weak_ptr<std::remove_pointer_t<THandle>>& entry = FEntries[key];
        TSharedHandle<THandle> handle = entry.lock();
        if (!handle) {
            const THandle made = make();
            if (!made)
                throw EOutOfResources(u"No more fonts, pens or brushes are to be had");
            handle = TSharedHandle<THandle>(made, [this, key](THandle last) { Forget(key, last); });
            entry = handle;
        }
        return handle;
    }

private:
    void Forget(const TKey& key, THandle handle) {
        const std::lock_guard lock(FMutex);
        ::DeleteObject(handle);
        // Another thread may have made its successor in the meantime.
        const auto found = FEntries.find(key);
        if (found != FEntries.end() && found->second.expired())
            FEntries.erase(found);
    }

    std::mutex FMutex;
    std::map<TKey, std::weak_ptr<std::remove_pointer_t<THandle>>> FEntries;
};

class TGraphicsObject : public TPersistent {
    FRAMEWORK_CLASS(TGraphicsObject)

public:
    /// Something that a person can see has changed.
    TNotifyEvent OnChange;

protected:
    void Changed() {
        if (!OnChange)
            return;
        const TNotifyEvent handler = OnChange; // it may reassign the event or free the object
        handler(this);
    }
};

} // namespace framework
