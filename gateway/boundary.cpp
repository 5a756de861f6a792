#include "gateway/boundary.hpp"

#include "gateway/gateway.hpp"

namespace gateway {

std::string toString(const Call &call) {
  std::string line = call.name + "(" + call.key + ")";
  if (!call.answer.empty()) line += " = " + call.answer;
  if (call.faulted) line += " [fault]";
  return line;
}

std::string toString(const Fault &fault) {
  std::string line = fault.call;
  if (!fault.match.empty()) line += " matching \"" + fault.match + "\"";
  line += " from call " + std::to_string(fault.from);
  if (fault.times != Fault::kUnlimited) line += ", " + std::to_string(fault.times) + " times";
  return line + " (met " + std::to_string(fault.seen) + ")";
}

size_t Boundary::addFault(Fault fault) {
  faults_.push_back(std::move(fault));
  return faults_.size() - 1;
}

std::vector<Fault> Boundary::unfiredFaults() const {
  std::vector<Fault> unfired;
  for (const Fault &fault : faults_) {
    if (fault.fired == 0) unfired.push_back(fault);
  }
  return unfired;
}

const Fault *Boundary::enter(std::string_view name, std::string_view key) {
  ++fallible_;
  Fault *applies = nullptr;
  for (Fault &fault : faults_) {
    if (fault.call != "*" && fault.call != name) continue;
    if (key.find(fault.match) == std::string_view::npos) continue;
    ++fault.seen;
    const bool due = fault.seen >= fault.from &&
                     (fault.times == Fault::kUnlimited || fault.seen - fault.from < fault.times);
    if (!due || applies != nullptr) continue;
    // A count that is told to be wrong fires where it is told.
    if (!fault.count) ++fault.fired;
    applies = &fault;
  }
  current_ = applies;
  return applies;
}

uint32_t Boundary::countToReport(size_t real) {
  if (current_ == nullptr || !current_->count) return static_cast<uint32_t>(real);
  ++current_->fired;
  return static_cast<uint32_t>(*current_->count);
}

void Boundary::leave(Call call) {
  current_ = nullptr;
  if (sink_) sink_(call);
  calls_.push_back(std::move(call));
}

void Boundary::clearCalls() {
  calls_.clear();
  fallible_ = 0;
}

void Boundary::reset() {
  clearCalls();
  faults_.clear();
  current_ = nullptr;
}

namespace boundary {

Passage::Passage(std::string name, std::string key, Kind kind)
    : call_{std::move(name), std::move(key), {}, false} {
  if (kind == Kind::kFallible) fault_ = gateway().boundary().enter(call_.name, call_.key);
  call_.faulted = fault_ != nullptr;
}

Passage::~Passage() {
  gateway().boundary().leave(std::move(call_));
}

Gateway &Passage::gateway() {
  return Gateway::current();
}

void Passage::complain(const std::string &text) {
  gateway().complain(call_.name + "(" + call_.key + "): " + text);
}

void Passage::refused(const Refusal &refusal) {
  if (*refusal.what() != '\0') complain(refusal.what());
}

std::string text(const char *given) {
  return given == nullptr ? "(null)" : given;
}

}  // namespace boundary
}  // namespace gateway
