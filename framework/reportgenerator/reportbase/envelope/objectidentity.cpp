#include <reportgenerator/reportbase/envelope/objectidentity.h>

#include <cstddef>
#include <vector>

namespace REPORTGENERATOR {

namespace {

constexpr int LAST_KIND = 80;

/// The identities that objects have by their kind alone, by the numbers of the kinds; those between them are
/// of no kind.
const std::vector<ObjectIdentity>& IdentitiesOfKinds()
{
    static const std::vector<ObjectIdentity> identities = [] {
        std::vector<ObjectIdentity> made;
        for (int number = 0; number <= LAST_KIND; ++number) {
            const auto kind = static_cast<ObjectTypes>(number);
            made.push_back({kind, number, ObjectTypesToName(kind), nullptr, false});
        }
        return made;
    }();
    return identities;
}

} // namespace

const ObjectIdentity* IdentityOfKind(ObjectTypes type)
{
    const auto number = static_cast<std::size_t>(static_cast<unsigned int>(type));
    const std::vector<ObjectIdentity>& identities = IdentitiesOfKinds();
    return number < identities.size() && !identities[number].name.isEmpty() ? &identities[number] : nullptr;
}

const ObjectIdentity& NamelessIdentity()
{
    static const ObjectIdentity identity = {};
    return identity;
}

} // namespace REPORTGENERATOR
