#pragma once

// What can go wrong with data. A program that only shows messages catches EDatabaseError; the others are for programs
// that want to answer one case, such as a record that somebody else has changed meanwhile.

#include "framework/system/exceptions.h"

namespace framework {

/// Base of everything that datasets and recordsets raise.
class EDatabaseError : public Exception {
public:
    using Exception::Exception;
};

/// What the database or its driver refused. The message names what was being done, the SQLSTATE and the driver's own
/// text; passwords do not occur in it.
class EDatabaseServerError : public EDatabaseError {
public:
    EDatabaseServerError(StringView purpose, std::string_view sqlState, std::int32_t nativeError, StringView driverText,
                         bool connectionLost = false);

    /// What was being done, as in "open the connection".
    const String& GetPurpose() const { return FPurpose; }
    /// Five characters, 08001 for instance; HY000 when the driver has none.
    const std::string& GetSqlState() const { return FSqlState; }
    std::int32_t GetNativeError() const { return FNativeError; }
    /// True when the connection is gone and every further statement on it would fail.
    bool IsConnectionLost() const { return FConnectionLost; }

private:
    String FPurpose;
    std::string FSqlState;
    std::int32_t FNativeError;
    bool FConnectionLost;
};

/// The record was changed or deleted by somebody else since it was read. Nothing was written.
class ERecordChangedError : public EDatabaseError {
public:
    using EDatabaseError::EDatabaseError;
};

/// The rows cannot be edited, and the message says why: no key, more than one table, an expression.
class EReadOnlyDataError : public EDatabaseError {
public:
    using EDatabaseError::EDatabaseError;
};

/// A fetch was cancelled by its progress handler. Silent, as every EAbort.
class EFetchCancelled : public EAbort {};

} // namespace framework
