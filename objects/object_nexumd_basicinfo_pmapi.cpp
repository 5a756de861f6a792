#include <cstring>

#include "frame/codes.hpp"
#include "frame/getter.hpp"
#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/proxy.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "frame/text.hpp"
#include "platform/device.h"
#include "platform/device.hpp"
#include "platform/host.h"
#include "platform/wan.h"
#include "platform/wan.hpp"
#include "pmapi/basicinfo.h"
#include "pmapi/helpers.h"
#include "pmapi/meshinfo.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_basicinfo_pmapi.c";

namespace {

constexpr char kProductToken[] = "7QwkvnP4s2HbZeLm";
constexpr char kProtocolVersion[] = "1.4.1";
constexpr char kTestFlag[] = "Test";
constexpr int32_t kVersionType = 2;

constexpr InstancePath kLanDevice = InstancePath::constant("IGD.LD1");
constexpr InstancePath kFirstRadio = InstancePath::constant("IGD.LD1.WLANBase1");
constexpr InstancePath kFirstPppConnection = InstancePath::constant("IGD.WD1.WCD1.WCPPP1");

constexpr uint32_t kTextSize = 32;
constexpr uint32_t kDevKeySize = 128;

constexpr uint32_t kDualBandCards = 2;

constexpr int32_t kVersionUnread = PM_STATUS_FAILED;
constexpr int32_t kVersionFault = 6419;
int32_t cachedVersionCode = kVersionUnread;

/// Where a view keeps a text, and under which name its getter logs it.
struct TextPlace {
  uint32_t offset;
  uint32_t width;
  const char *label;
};

template <uint32_t Width>
consteval TextPlace place(TypedField<FieldKind::kText, true, Width> field, const char *label) {
  static_assert(Width >= kTextSize);
  return {field.offset, Width, label};
}

/// Delivers a text of a view that has been read, as far as the getter's `size` reaches, and logs
/// what it delivered.
void deliverText(const Trail &log, uint8_t *view, const TextPlace &text, char *destination,
                 uint32_t size) {
  char *const delivered = reinterpret_cast<char *>(view + text.offset);
  delivered[(size < text.width ? size : text.width) - 1] = '\0';
  copyExact(destination, delivered, size);
  PM_LOG(log, kInfo, 0, "%s:%s\n", text.label, delivered);
}

/// The whole of a getter of one text.
template <class View>
int32_t getText(const Trail &log, const InstancePath &instance, const TextPlace &text,
                char *destination, uint32_t size = kTextSize) {
  PM_LOG(log, kInfo, 0, "now in %s\n", log.function);
  if (destination == nullptr) return kFailure;
  ViewBuffer<View> view;
  if (log.readResult(view.read(instance)) != kOk) return kFailure;
  deliverText(log, view.bytes, text, destination, size);
  return kOk;
}

int32_t getIdentity(const Trail &log, const TextPlace &text, char *destination,
                    uint32_t size = kTextSize) {
  return getText<GatewayIdentityView>(log, kGatewayPath, text, destination, size);
}

int32_t getDevice(const Trail &log, const TextPlace &text, char *destination) {
  return getText<DeviceInfoView>(log, kGatewayPath, text, destination);
}

}  // namespace

int32_t ubus_getProductToken(char *destination) {
  return getIdentity(Trail(kSourceTag), place(GatewayIdentityView::productToken, "token"),
                     destination);
}

int32_t ubus_getDeviceType(char *destination) {
  return getDevice(Trail(kSourceTag), place(DeviceInfoView::deviceType, "type"), destination);
}

int32_t ubus_getdeviceVendor(char *destination) {
  return getDevice(Trail(kSourceTag), place(DeviceInfoView::vendor, "vendor"), destination);
}

int32_t ubus_getDeviceModel(char *destination) {
  return getDevice(Trail(kSourceTag), place(DeviceInfoView::model, "model"), destination);
}

int32_t ubus_getDeviceSn(char *destination) {
  return getDevice(Trail(kSourceTag), place(DeviceInfoView::serialNumber, "sn"), destination);
}

int32_t ubus_getCMEI(char *destination) {
  return getIdentity(Trail(kSourceTag), place(GatewayIdentityView::cmei, "cmei"), destination);
}

int32_t ubus_getSWVersion(char *destination) {
  return getDevice(Trail(kSourceTag), place(DeviceInfoView::softwareVersion, "sw_ver"),
                   destination);
}

int32_t ubus_getFWVersion(char *destination) {
  return getDevice(Trail(kSourceTag), place(DeviceInfoView::firmwareVersion, "ver"), destination);
}

int32_t ubus_getAuthID(char *destination) {
  return getIdentity(Trail(kSourceTag), place(GatewayIdentityView::authId, "authid"), destination);
}

int32_t ubus_getDevKey(char *destination) {
  return getIdentity(Trail(kSourceTag), place(GatewayIdentityView::devKey, "devkey"), destination,
                     kDevKeySize);
}

int32_t ubus_getPPPOEUser(char *destination) {
  return getText<WanPppConnectionView>(Trail(kSourceTag), kFirstPppConnection,
                                       place(WanPppConnectionView::userName, "pUser"), destination);
}

int32_t ubus_getCaptureEth(char *destination) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "now in si_getCaptureEth\n");
  if (destination == nullptr) return kFailure;
  ViewBuffer<GatewayIdentityView> identity;
  if (const int32_t status = identity.read(kGatewayPath); status != kOk) {
    PM_LOG(log, kError, status, "[%s] dbsetview fail(%d)\r\n", log.function, status);
    return status;
  }
  deliverText(log, identity.bytes, place(GatewayIdentityView::captureEth, "eth"), destination,
              kTextSize);
  return kOk;
}

int32_t ubus_setCaptureEth(const char *name) {
  const Trail log(kSourceTag);
  if (log.lacks(name)) return kFailure;
  PM_LOG(log, kInfo, 0, "eth:%s\n", name);
  ViewBuffer<GatewayIdentityView> identity;
  identity.set(identity.captureEth, name);
  if (const int32_t status = identity.write(kGatewayPath); status != kOk) {
    PM_LOG(log, kError, status, "[%s] dbsetview fail(%d)\r\n", log.function, status);
    return kFailure;
  }
  return kOk;
}

int32_t ubus_getDeviceMac(char *destination) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "now in si_getDeviceMac\n");
  if (destination == nullptr) return kFailure;
  ViewBuffer<LanDeviceView> lan;
  if (const int32_t status = lan.read(kLanDevice); status != kOk) {
    PM_LOG(log, kError, status, "[%s] dbsetview fail(%d)\r\n", log.function, status);
    return kFailure;
  }
  MacToString(lan.get(lan.mac), destination, kTextSize);
  return kOk;
}

int32_t ubus_getUplinkType(char *text, int32_t length) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "now in si_getUplinkType\n");
  if (text == nullptr) return kFailure;
  UpModeInfo uplink{};
  if (const int32_t status = pm_upmode_info_get(&uplink); status != kOk) {
    PM_LOG(log, kError, status, "[%s] pm_upmode_info_get error, iret = %d\n", log.function, status);
    return status;
  }
  const auto bound = length > 0 ? static_cast<uint32_t>(length) : 0;
  if (const char *name = nameOf(kUplinkModes, uplink.mode); name != nullptr) {
    copyWord(text, name, bound);
  }
  return kOk;
}

int32_t ubus_getWorkingMode(uint32_t *mode) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "now in si_getUplinkType\n");
  if (mode == nullptr) return kFailure;
  ViewBuffer<NetworkingDeviceView> networking;
  if (const int32_t status = networking.read(kGatewayPath); status != kOk) {
    PM_LOG(log, kError, status, "vcorDbGetView DBVIEW_NETWORKING_DEV_INFO failed!, iRet = %d\n",
           status);
    return status;
  }
  *mode = networking.get(networking.workingMode);
  return kOk;
}

int32_t ubus_getRadio5() {
  const Trail log = entered(kSourceTag);
  ViewBuffer<GatewayIdentityView> identity;
  return log.readResult(identity.read(kGatewayPath)) == kOk ? kOk : kFailure;
}

int32_t ubus_wlan_get_card_max(uint32_t *count) {
  const Trail log(kSourceTag);
  if (count == nullptr) {
    PM_LOG(log, kError, 0, "max_card_num is NULL\n");
    return kFailure;
  }
  uint32_t answer = 0;
  auto answerLength = static_cast<uint16_t>(sizeof answer);
  const int32_t status = askManager(MANAGER_MODULE_WLAN, WLAN_MGR_GET_CARD_MAX, kFirstRadio.text,
                                    sizeof kFirstRadio.text, &answer, &answerLength);
  if (status != kOk) {
    PM_LOG(log, kError, status, "pm_send_msg_2mm(LINE(%d)) fail=%d\n", __LINE__, status);
    return status;
  }
  memcpy(count, &answer, answerLength < sizeof answer ? answerLength : sizeof answer);
  return kOk;
}

int32_t ubus_get_current_version_code() {
  const Trail log(kSourceTag);
  if (cachedVersionCode != kVersionUnread) return cachedVersionCode;
  const int32_t status = pm_get_version_config_type_int(&cachedVersionCode);
  if (status != kOk) {
    PM_LOG(log, kFault, kVersionFault, "pm_get_version_config_type_int failed: %d!", status);
    cachedVersionCode = kVersionUnread;
  }
  return cachedVersionCode;
}

namespace {

void fillIdentity(BasicInfoRecord *record) {
  char discardedToken[kTextSize] = {};
  ubus_getProductToken(discardedToken);
  copyText(record->productToken, kProductToken);
  fill(record->deviceType, ubus_getDeviceType);
  fill(record->deviceVendor, ubus_getdeviceVendor);
  fill(record->deviceModel, ubus_getDeviceModel);
  fill(record->deviceSn, ubus_getDeviceSn);
  fill(record->cmei, ubus_getCMEI);
  fill(record->softwareVersion, ubus_getSWVersion);
  fill(record->firmwareVersion, ubus_getFWVersion);
  copyText(record->protocolVersion, kProtocolVersion);
  fill(record->authId, ubus_getAuthID);
  fill(record->devKey, ubus_getDevKey);
  copyText(record->reservedText, "");
  record->versionType = kVersionType;
  ubus_get_current_version_code();
  copyText(record->testFlag, kTestFlag);

  char mac[kTextSize] = {};
  ubus_getDeviceMac(mac);
  ToUpperCase(mac);
  copyText(record->deviceMac, mac);
}

}  // namespace

int32_t pm_ubus_get_basicinfo(BasicInfoRecord *record) {
  const Trail log = entered(kSourceTag);
  fillIdentity(record);

  uint32_t ipv4 = 0;
  uint8_t ipv6[16] = {};
  char wanInterface[PLATFORM_INSTANCE_SIZE] = {};
  const int32_t wan = ubus_get_router_ip_host_ipv46(&ipv4, ipv6, wanInterface, &g_ipmode);
  if (wan != kOk) PM_LOG(log, kError, wan, "ubus_get_router_ip_host_ipv46 failed!!\n");
  copyText(record->wanIpv4, g_wanIPv4Addr);
  copyText(record->wanIpv6, g_wanIPv6Addr);
  fill(record->captureEth, ubus_getCaptureEth);

  record->meshSupport = 1;
  MeshInfoRecord mesh{};
  const int32_t meshStatus = pm_ubus_get_meshinfo(&mesh);
  if (meshStatus != kOk) {
    PM_LOG(log, kError, meshStatus, "pm_ubus_get_meshinfo fail iRet =%d\n ", meshStatus);
  }
  record->meshInfoCode = numberIn(mesh.meshRole);

  char uplinkType[kTextSize] = {};
  ubus_getUplinkType(uplinkType, kTextSize - 1);
  copyText(record->uplinkType, uplinkType);

  uint32_t workingMode = 0;
  ubus_getWorkingMode(&workingMode);
  char workingModeText[kTextSize] = {};
  itoa(static_cast<int32_t>(workingMode), workingModeText, 10);
  copyText(record->workingMode, workingModeText);

  uint32_t cards = 0;
  ubus_wlan_get_card_max(&cards);
  PM_LOG(log, kInfo, 0, "Wlan_Card_Max=%d\n", cards);
  record->dualBand = cards == kDualBandCards ? 1 : 0;

  fill(record->pppoeUser, ubus_getPPPOEUser);
  return kOk;
}
