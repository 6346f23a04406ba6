#pragma once

// Several changes announced as one.

namespace framework {

/// Runs `body` between BeginUpdate and EndUpdate of `target`, also when it raises; an exception of `body` goes before
/// one that the announcement raises.
template <class TTarget, class TBody>
void WithinUpdate(TTarget& target, TBody&& body) {
    target.BeginUpdate();
    try {
        body();
    } catch (...) {
        try {
            target.EndUpdate();
        } catch (...) { // NOLINT(bugprone-empty-catch): the first exception tells what went wrong
        }
        throw;
    }
    target.EndUpdate();
}

} // namespace framework
