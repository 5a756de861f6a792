#include "gateway/habits.hpp"

namespace gateway {

Habits &habits() {
  static Habits habits;
  return habits;
}

}  // namespace gateway
