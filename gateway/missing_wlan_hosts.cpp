#include "gateway/missing.hpp"
#include "platform/proxy.h"

using namespace gateway;

int32_t ctSgw_wlanGetHostInfo(WlanHostTable *) {
  return notThereYet("ctSgw_wlanGetHostInfo");
}
