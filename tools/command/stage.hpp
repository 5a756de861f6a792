// Where calls are made and steps are played: a virtual gateway, or a platform that is really there.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "catalogue/answer.hpp"
#include "catalogue/catalogue.hpp"
#include "tools/command/trail.hpp"

namespace command {

using namespace catalogue;
using namespace records;

/// How answers are printed.
struct Printing {
  bool table = false;
  bool showSecrets = false;
};

class Stage {
 public:
  /// Makes the lists of samples empty, which the library leaves to the daemon.
  Stage();
  virtual ~Stage() = default;

  virtual Answer call(const std::string &object, const std::string &method,
                      const Json &arguments) = 0;
  /// `value` as it may be printed: secrets that are known are masked in it.
  virtual Json shown(const Json &value) const = 0;

  // Only a virtual gateway can do these; elsewhere they throw InputError.
  virtual void load(const std::string &profile);
  virtual void planFault(const std::string &rule);
  virtual void advance(int64_t seconds);
  virtual void writeFile(const std::string &path, const std::vector<std::string> &lines);
  /// Nothing when there is no such file.
  virtual std::optional<std::vector<std::string>> readFile(const std::string &path);
  virtual Json gatewayState();
  /// What the library said during the last call.
  virtual const Trail &trail() const;
};

}  // namespace command
