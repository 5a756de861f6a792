/* A daemon without any platform: what needs none must load and work all the same. */
#include <platform/config_database.h>
#include <pmapi/pmapi.h>

int main(void) {
  return HexCharToVal('a') == 10 ? 0 : 1;
}
