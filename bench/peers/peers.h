#ifndef BENCH_PEERS_PEERS_H
#define BENCH_PEERS_PEERS_H

#include <string>

namespace Bench {

class Suite;

// Other libraries doing the same job in a form of their own: the report from an object to bytes, and back to
// an object. Each is there when it was installed while this was built.

void AddCereal(Suite& suite);
void AddFlatBuffers(Suite& suite);
void AddProtobuf(Suite& suite);
void AddPugixml(Suite& suite);
void AddQtFormats(Suite& suite); ///< JSON and CBOR, always there

/// Adds those that are there.
void AddPeers(Suite& suite);

/// The names of those that are not, separated by commas.
std::string MissingPeers();

} // namespace Bench

#endif
