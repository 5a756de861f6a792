// Makes the virtual gateway a home router as soon as it is loaded: a platform for the probe.
#include "gateway/gateway.hpp"

namespace {

const bool isHomeRouter = [] {
  gateway::Gateway::current().loadFile(PMAPI_EXAMPLES_DIR "/home_router.json");
  return true;
}();

}  // namespace
