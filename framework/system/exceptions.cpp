#include "framework/system/exceptions.h"

#include "framework/system/strings.h"

namespace framework {

Exception::Exception(String message) : FMessage(std::move(message)), FUtf8(Utf8Encode(FMessage)) {
}

EAbort::EAbort() : Exception(u"Operation aborted") {
}

} // namespace framework
