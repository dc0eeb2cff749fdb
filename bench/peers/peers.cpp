#include "peers/peers.h"

namespace Bench {

namespace {

struct Peer
{
    const char* name;
    void (*add)(Suite&); ///< null when it is not installed
};

constexpr Peer PEERS[] = {
    {"Qt's JSON and CBOR", AddQtFormats},
#ifdef BENCH_CEREAL
    {"cereal", AddCereal},
#else
    {"cereal", nullptr},
#endif
#ifdef BENCH_FLATBUFFERS
    {"FlatBuffers", AddFlatBuffers},
#else
    {"FlatBuffers", nullptr},
#endif
#ifdef BENCH_PROTOBUF
    {"Protocol Buffers", AddProtobuf},
#else
    {"Protocol Buffers", nullptr},
#endif
#ifdef BENCH_PUGIXML
    {"pugixml", AddPugixml},
#else
    {"pugixml", nullptr},
#endif
};

} // namespace

void AddPeers(Suite& suite)
{
    for (const Peer& peer : PEERS) {
        if (peer.add != nullptr)
            peer.add(suite);
    }
}

std::string MissingPeers()
{
    std::string missing;
    for (const Peer& peer : PEERS) {
        if (peer.add == nullptr)
            missing += (missing.empty() ? "" : ", ") + std::string(peer.name);
    }
    return missing;
}

} // namespace Bench
