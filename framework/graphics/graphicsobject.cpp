#include "framework/graphics/graphicsobject.h"

#include "framework/system/published.h"

namespace framework {

const TClassInfo& TGraphicsObject::StaticClass() {
    static const TClassInfo info = DescribeClass<TGraphicsObject>(u"TGraphicsObject", TPersistent::StaticClass());
    return info;
}

} // namespace framework
