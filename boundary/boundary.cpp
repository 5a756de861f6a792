#include "boundary/boundary.hpp"

namespace boundary {

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

Boundary &Boundary::current() {
  // Never destroyed: the library may make calls until the process is gone.
  static Boundary *const boundary = new Boundary;
  return *boundary;
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

Fault *Boundary::applicableFault(const Call &call) {
  ++fallible_;
  Fault *applies = nullptr;
  for (Fault &fault : faults_) {
    if (fault.call != "*" && fault.call != call.name) continue;
    if (call.key.find(fault.match) == std::string::npos) continue;
    ++fault.seen;
    const bool due = fault.seen >= fault.from &&
                     (fault.times == Fault::kUnlimited || fault.seen - fault.from < fault.times);
    if (!due || applies != nullptr) continue;
    // A count that is told to be wrong fires where it is told.
    if (!fault.count) ++fault.fired;
    applies = &fault;
  }
  return applies;
}

void Boundary::record(Call call) {
  if (callSink_) callSink_(call);
  calls_.push_back(std::move(call));
}

void Boundary::complain(const std::string &complaint) {
  if (complaintSink_) complaintSink_(complaint);
  complaints_.push_back(complaint);
}

std::vector<std::string> Boundary::takeComplaints() {
  return std::exchange(complaints_, {});
}

void Boundary::clearCalls() {
  calls_.clear();
  fallible_ = 0;
}

void Boundary::reset() {
  clearCalls();
  faults_.clear();
  complaints_.clear();
}

Passage::Passage(std::string name, std::string key, Kind kind)
    : call_{std::move(name), std::move(key), {}, false} {
  if (kind == Kind::kFallible) fault_ = Boundary::current().applicableFault(call_);
  call_.faulted = fault_ != nullptr;
}

Passage::~Passage() {
  Boundary::current().record(std::move(call_));
}

void Passage::complain(const std::string &text) {
  Boundary::current().complain(call_.name + "(" + call_.key + "): " + text);
}

std::string text(const char *given) {
  return given == nullptr ? "(null)" : given;
}

}  // namespace boundary
