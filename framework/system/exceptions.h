#pragma once

// The exceptions of the framework. Each carries a UTF-16 message meant for a person; what() gives it as UTF-8.

#include "framework/system/types.h"

#include <exception>

namespace framework {

/// Base of all framework exceptions.
class Exception : public std::exception {
public:
    explicit Exception(String message);
    const String& GetMessageText() const { return FMessage; }
    const char* what() const noexcept override { return FUtf8.c_str(); }

private:
    String FMessage;
    std::string FUtf8;
};

/// A text that cannot be converted to the wanted type.
class EConvertError : public Exception {
public:
    using Exception::Exception;
};

/// An index outside a list, or a list operation that cannot be carried out.
class EListError : public Exception {
public:
    using Exception::Exception;
};

/// A component name that is not an identifier or already taken, or an ownership that cannot be.
class EComponentError : public Exception {
public:
    using Exception::Exception;
};

/// A published property that does not exist or does not take the value.
class EPropertyError : public Exception {
public:
    using Exception::Exception;
};

/// A text form that names an unknown class.
class EClassNotFound : public Exception {
public:
    using Exception::Exception;
};

/// A variant that does not hold the wanted type.
class EVariantError : public Exception {
public:
    using Exception::Exception;
};

/// An operation that the object's present state forbids (for example showing a form that is being shown modally).
class EInvalidOperation : public Exception {
public:
    using Exception::Exception;
};

/// A file that cannot be opened for reading.
class EFOpenError : public Exception {
public:
    using Exception::Exception;
};

/// A file that cannot be made.
class EFCreateError : public Exception {
public:
    using Exception::Exception;
};

/// A stream or file that did not take all that was written.
class EWriteError : public Exception {
public:
    using Exception::Exception;
};

/// Ends an operation without a word to the user.
class EAbort : public Exception {
public:
    EAbort();
};

} // namespace framework
