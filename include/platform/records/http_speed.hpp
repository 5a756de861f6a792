#pragma once

#include "platform/record.hpp"

namespace platform {

/// Request of CTSGW_EVENT_SET_HTTPDOWNLOAD_DIAGNOSTICS.
struct HttpSpeedRequest : Record<276> {
  static constexpr PlainWord word0{"word0", 0};
  static constexpr PlainText<260> requestText{"requestText", 4};
  static constexpr PlainWord word264{"word264", 264};
  static constexpr PlainWord requestWord{"requestWord", 268};
  static constexpr PlainWord word272{"word272", 272};
  static constexpr auto fields = layout(word0, requestText, word264, requestWord, word272);
};

/// The whole reply, status word included, of CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT.
struct HttpSpeedReply : Record<20480> {
  static constexpr PlainWord iRet{"iRet", 0};
  static constexpr PlainText<260> state{"state", 12};
  static constexpr PlainWord rate{"rate", 272};
  static constexpr auto fields = layout(iRet, state, rate);
};

}  // namespace platform
