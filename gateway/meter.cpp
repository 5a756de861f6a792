#include "gateway/meter.hpp"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace gateway {

namespace {

uint64_t countIn(const Json &value, const std::string &place) {
  if (!value.is_number_unsigned()) throw InputError(place, "must be a count");
  return value.get<uint64_t>();
}

}  // namespace

uint64_t Meter::at(int64_t uptime) const {
  return count + static_cast<uint64_t>(std::max<int64_t>(uptime - since, 0)) * perSecond;
}

void Meter::stop(int64_t uptime) {
  *this = {at(uptime), 0, uptime};
}

void readMeter(Members &members, std::string_view member, int64_t uptime, Meter *meter) {
  const Json *value = members.take(member);
  if (value == nullptr) return;
  *meter = {0, 0, uptime};
  const std::string place = members.placeOf(member);
  if (!value->is_object()) {
    meter->count = countIn(*value, place);
    return;
  }
  Members one(*value, place);
  if (const Json *count = one.take("count")) meter->count = countIn(*count, one.placeOf("count"));
  one.word("perSecond", &meter->perSecond);
  one.finish();
}

Json saveMeter(const Meter &meter, int64_t uptime) {
  return {{"count", meter.at(uptime)}, {"perSecond", meter.perSecond}};
}

}  // namespace gateway
