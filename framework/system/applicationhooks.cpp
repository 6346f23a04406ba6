#include "framework/system/applicationhooks.h"

#include "framework/system/exceptions.h"

#include <cstdio>

namespace framework {

namespace {

TNotifyEvent& Handler() {
    static TNotifyEvent handler;
    return handler;
}

} // namespace

void ApplicationHandleException(TObject* sender) {
    if (const TNotifyEvent handler = Handler()) {
        handler(sender);
        return;
    }
    try {
        throw;
    } catch (const EAbort&) { // NOLINT(bugprone-empty-catch): it ends an operation without a word
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
}

void SetApplicationExceptionHandler(TNotifyEvent handler) {
    Handler() = std::move(handler);
}

} // namespace framework
