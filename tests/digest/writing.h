#ifndef TESTS_DIGEST_WRITING_H
#define TESTS_DIGEST_WRITING_H

#include "digest/digests.h"
#include "digest/specimen.h"

#include "support/choices.h"

namespace Digest {

/// Digests what the object writes in every form that its class has, and what its checks say.
void DigestForms(Digests& digests, const Specimen& specimen);

/// Digests what fresh objects make of the object's forms with a character or a byte changed, taken out or cut off.
/// Compressed data are left out: how they are packed is the business of the platform's zlib.
void DigestDamage(Digests& digests, const Specimen& specimen, Support::Choices choices);

} // namespace Digest

#endif
