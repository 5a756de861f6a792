#pragma once

#include "platform/records/qos_classification.hpp"
#include "platform/view_ids.h"

namespace platform {

/// The same as the database delivers it.
using QosClassificationView = QosClassificationFields<View<DBVIEW_QOS_CLASSIFICATION, 4080>>;

}  // namespace platform
