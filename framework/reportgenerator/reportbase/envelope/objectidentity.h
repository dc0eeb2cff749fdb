#ifndef REPORTGENERATOR_ENVELOPE_OBJECTIDENTITY_H
#define REPORTGENERATOR_ENVELOPE_OBJECTIDENTITY_H

#include <reportgenerator/reportbase/codec/name.h>
#include <reportgenerator/reportbase/objecttypes.h>

namespace REPORTGENERATOR {

struct FastPath;

/// Kind, name and id of an object. All objects of a class point at the same one, which is made with the first
/// of them and stays as long as the program; an object that is given another name or kind has one of its own.
struct ObjectIdentity
{
    ObjectTypes type = AnyType;
    long long id = AnyType;
    QString name;

    /// The way past Qt's stream classes, null for classes without one.
    const FastPath* fastPath = nullptr;

    /// Belongs to one object.
    bool isOwn = false;
};

/// What objects point at that are nothing but of a kind; null for a number that has no name.
const ObjectIdentity* IdentityOfKind(ObjectTypes type);

/// What an object points at before it has a kind.
const ObjectIdentity& NamelessIdentity();

/// The identity of a class that is of the kind `AnyType` and has a name of its own.
template <const Name& NAME>
const ObjectIdentity& IdentityNamed()
{
    static const ObjectIdentity identity = {AnyType, AnyType, NAME.Text(), nullptr, false};
    return identity;
}

} // namespace REPORTGENERATOR

#endif
