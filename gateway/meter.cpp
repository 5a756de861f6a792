#include "gateway/meter.hpp"

#include <algorithm>

#include "gateway/gateway.hpp"

namespace gateway {

namespace {

int64_t uptime() {
  return Gateway::current().clock().uptime();
}

}  // namespace

uint64_t Meter::now() const {
  return count + static_cast<uint64_t>(std::max<int64_t>(uptime() - since, 0)) * perSecond;
}

void Meter::settle() {
  *this = {now(), perSecond, uptime()};
}

void Meter::stop() {
  *this = {now(), 0, uptime()};
}

void begin(Meter &meter) {
  meter.since = uptime();
}

}  // namespace gateway
