#ifndef REPORTGENERATOR_CODEC_INVALIDVALUES_H
#define REPORTGENERATOR_CODEC_INVALIDVALUES_H

namespace REPORTGENERATOR {

// What an unset field of each type holds, in the files too. The three numbers differ on purpose.
constexpr int INVALID_INT = -111111;
constexpr unsigned int INVALID_UNSIGNED_INT = 4294967295U;
constexpr long long INVALID_LONG_LONG = -111111;
constexpr float INVALID_FLOAT = -1111111.0F;
constexpr double INVALID_DOUBLE = -111111.11;

} // namespace REPORTGENERATOR

#endif
