// What some platforms do and others do not. The gateway does none of it by itself.
#pragma once

namespace gateway {

struct Habits {
  /// Takes all 32 bytes of an instance path, so that no shorter text may be given for one: those
  /// behind its end are to be zero.
  bool copiesWholePaths = false;
  /// Writes a path of 32 characters without an end, where others have no such path.
  bool endsNoPaths = false;
  /// Leaves something else in the header of a view that was read.
  bool spoilsHeaders = false;
  /// Fills the reply of a manager module to 2048 bytes.
  bool answersAtLength = false;
  /// Has something of its own in the bytes of a timer entry that belong to no field.
  bool fillsGaps = false;
};

inline Habits &habits() {
  static Habits habits;
  return habits;
}

/// Gives the gateway a habit for as long as this lives.
class Habit {
 public:
  explicit Habit(bool Habits::*habit) : habit_(habit) { habits().*habit_ = true; }
  ~Habit() { habits().*habit_ = false; }
  Habit(const Habit &) = delete;
  Habit &operator=(const Habit &) = delete;

 private:
  bool Habits::*const habit_;
};

}  // namespace gateway
