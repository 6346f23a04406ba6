#include "framework/system/exceptions.h"
#include "framework/system/published.h"

namespace framework {

TObject::~TObject() = default;

const TClassInfo& TObject::StaticClass() {
    static const TClassInfo info(u"TObject", nullptr, {}, {}, {}, nullptr);
    return info;
}

const TClassInfo& TObject::ClassInfo() const {
    return StaticClass();
}

const String& TObject::ClassName() const {
    return ClassInfo().Name();
}

bool TObject::ClassNameIs(StringView name) const {
    return TNameEqual()(ClassName(), name);
}

bool TObject::InheritsFrom(const TClassInfo& ancestor) const {
    return ClassInfo().InheritsFrom(ancestor);
}

const TClassInfo& TPersistent::StaticClass() {
    static const TClassInfo info = DescribeClass<TPersistent>(u"TPersistent", TObject::StaticClass());
    return info;
}

void TPersistent::Assign(TPersistent* source) {
    if (source)
        source->AssignTo(this);
    else
        AssignError(nullptr, *this);
}

void TPersistent::AssignTo(TPersistent* target) {
    AssignError(this, *target);
}

String TPersistent::GetNamePath() const {
    const TPersistent* owner = GetOwner();
    return owner ? owner->GetNamePath() + u"." + ClassName() : ClassName();
}

void TPersistent::AssignError(const TPersistent* source, const TPersistent& target) {
    throw EConvertError(u"Cannot assign a " + (source ? source->ClassName() : String(u"nil")) + u" to a " +
                        target.ClassName());
}

} // namespace framework
