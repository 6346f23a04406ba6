#pragma once

// The roots of every class: TObject knows its class at run time, TPersistent has published properties and can be
// assigned. A class joins by writing FRAMEWORK_CLASS(TName) in its body and describing itself once, see published.h.

#include "framework/system/types.h"

namespace framework {

class TClassInfo;

class TObject {
public:
    TObject() = default;
    TObject(const TObject&) = delete;
    TObject& operator=(const TObject&) = delete;
    virtual ~TObject();

    static const TClassInfo& StaticClass();
    /// The class the object really has: name, ancestors, published table.
    virtual const TClassInfo& ClassInfo() const;

    const String& ClassName() const;
    bool ClassNameIs(StringView name) const;
    bool InheritsFrom(const TClassInfo& ancestor) const;
};

/// Declares the run-time class of a TObject descendant; the class's source defines StaticClass() with DescribeClass.
#define FRAMEWORK_CLASS(type)                                                                                          \
public:                                                                                                                \
    static const ::framework::TClassInfo& StaticClass();                                                               \
    const ::framework::TClassInfo& ClassInfo() const override {                                                        \
        return type::StaticClass();                                                                                    \
    }                                                                                                                  \
                                                                                                                       \
private:

/// An object with published properties, whose content can be assigned to another object.
class TPersistent : public TObject {
    FRAMEWORK_CLASS(TPersistent)

public:
    /// Takes over the content of `source`. The default asks the source to copy itself (AssignTo) and so ends in
    /// EConvertError "Cannot assign a TSource to a TTarget" when neither side knows the other.
    virtual void Assign(TPersistent* source);
    /// Who owns this object, for its path in messages and in text forms; null for none.
    virtual TPersistent* GetOwner() const { return nullptr; }
    /// The path by which a person knows the object, as in "Edit1.BoundLabel"; the class name when it has none.
    virtual String GetNamePath() const;

protected:
    virtual void AssignTo(TPersistent* target);

private:
    [[noreturn]] static void AssignError(const TPersistent* source, const TPersistent& target);
};

} // namespace framework
