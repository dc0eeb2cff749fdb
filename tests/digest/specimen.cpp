#include "digest/specimen.h"

namespace Digest {

Specimen::~Specimen() = default;

} // namespace Digest
