/* The manifest of the data files, byte for byte. The build says where it is: ALMANAC_MANIFEST. */

#define JOINED(a, b) a##b
#define EXPANDED(a, b) JOINED(a, b)
#define SYMBOL(name) EXPANDED(__USER_LABEL_PREFIX__, name)

#if defined(_WIN32)
  .section .rdata, "dr"
#else
  .section .rodata, "a"
#endif

  .globl SYMBOL(almanac_manifest)
  .globl SYMBOL(almanac_manifest_end)

SYMBOL(almanac_manifest):
  .incbin ALMANAC_MANIFEST
SYMBOL(almanac_manifest_end):

#if !defined(_WIN32)
#if defined(__CET__)
#include <cet.h> /* marks this part for control-flow enforcement, as the compiled ones are */
#endif
  .section .note.GNU-stack, "", @progbits
#endif
