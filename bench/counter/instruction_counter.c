/* Plugin of the emulator that counts executed guest instructions into a file which the guest maps,
   so that the guest reads its own instruction count with one load. Built for the machine that runs
   the emulator. */
#include <fcntl.h>
#include <stddef.h>
#include <stdint.h>
#include <string.h>
#include <sys/mman.h>
#include <unistd.h>

#define PLUGIN_EXPORT __attribute__((visibility("default")))

/* The part of the emulator's documented plugin interface, version 1, that is used here; the
   distribution packs no header for it. */
typedef uint64_t PluginId;
typedef struct qemu_plugin_tb Block;
typedef struct qemu_plugin_insn Instruction;
enum InlineOperation { INLINE_ADD_U64 = 0 };

size_t qemu_plugin_tb_n_insns(const Block *block);
Instruction *qemu_plugin_tb_get_insn(const Block *block, size_t index);
void qemu_plugin_register_vcpu_tb_trans_cb(PluginId id, void (*callback)(PluginId, Block *));
void qemu_plugin_register_vcpu_insn_exec_inline(Instruction *instruction,
                                                enum InlineOperation operation, void *value,
                                                uint64_t operand);

PLUGIN_EXPORT int qemu_plugin_version = 1;
PLUGIN_EXPORT int qemu_plugin_install(PluginId id, const void *info, int argc, char **argv);

static const char kOption[] = "count=";
static uint64_t *count;

/* Each instruction for itself: a count per block would be wrong where a fault leaves it early. */
static void countBlock(PluginId id, Block *block) {
  const size_t instructions = qemu_plugin_tb_n_insns(block);
  (void)id;
  for (size_t i = 0; i < instructions; ++i) {
    qemu_plugin_register_vcpu_insn_exec_inline(qemu_plugin_tb_get_insn(block, i), INLINE_ADD_U64,
                                               count, 1);
  }
}

static int mapCount(const char *path) {
  const size_t size = (size_t)sysconf(_SC_PAGESIZE);
  const int file = open(path, O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (file < 0) return -1;
  if (ftruncate(file, (off_t)size) == 0) {
    count = mmap(NULL, size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  }
  close(file);
  return count == NULL || count == MAP_FAILED ? -1 : 0;
}

int qemu_plugin_install(PluginId id, const void *info, int argc, char **argv) {
  (void)info;
  if (argc != 1 || strncmp(argv[0], kOption, sizeof kOption - 1) != 0) return -1;
  if (mapCount(argv[0] + sizeof kOption - 1) != 0) return -1;
  qemu_plugin_register_vcpu_tb_trans_cb(id, countBlock);
  return 0;
}
