/* The index and the data file, byte for byte, in memory that nobody can write to. The build says
 * where they are: ZENITHOR_INDEX_FILE and ZENITHOR_DATA_FILE. */

#define JOINED(a, b) a##b
#define EXPANDED(a, b) JOINED(a, b)
#define SYMBOL(name) EXPANDED(__USER_LABEL_PREFIX__, name)

#if defined(_WIN32)
  .section .rdata, "dr"
#else
  .section .rodata, "a"
  .hidden SYMBOL(zenithor_linked_index)
  .hidden SYMBOL(zenithor_linked_index_end)
  .hidden SYMBOL(zenithor_linked_terms)
  .hidden SYMBOL(zenithor_linked_terms_end)
#endif

  .globl SYMBOL(zenithor_linked_index)
  .globl SYMBOL(zenithor_linked_index_end)
  .globl SYMBOL(zenithor_linked_terms)
  .globl SYMBOL(zenithor_linked_terms_end)

  .balign 64
SYMBOL(zenithor_linked_index):
  .incbin ZENITHOR_INDEX_FILE
SYMBOL(zenithor_linked_index_end):

  .balign 64
SYMBOL(zenithor_linked_terms):
  .incbin ZENITHOR_DATA_FILE
SYMBOL(zenithor_linked_terms_end):

#if !defined(_WIN32)
#if defined(__CET__)
#include <cet.h> /* marks this part for control-flow enforcement, as the compiled ones are */
#endif
  .section .note.GNU-stack, "", @progbits
#endif
