// Circular doubly linked lists. Every node begins with its links, and an empty list's head points
// at itself.
#pragma once

#include "pmapi/types.h"

namespace pm {

inline void listInit(ListLink *head) {
  head->next = head;
  head->prev = head;
}

inline void listAppend(ListLink *head, ListLink *node) {
  node->prev = head->prev;
  node->next = head;
  head->prev->next = node;
  head->prev = node;
}

inline void listUnlink(ListLink *node) {
  node->prev->next = node->next;
  node->next->prev = node->prev;
}

}  // namespace pm
