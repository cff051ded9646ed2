/* The index and the data file, byte for byte, in memory that nobody can write to. The build says
 * where they are: ZENITHOR_INDEX_FILE and ZENITHOR_DATA_FILE. */

#define JOINED(a, b) a##b
#define EXPANDED(a, b) JOINED(a, b)
#define SYMBOL(name) EXPANDED(__USER_LABEL_PREFIX__, name)

#if defined(_WIN32)
  .section .rdata, "dr"
#elif defined(__wasm__)
  .section .rodata.zenithor_linked_data, "", @
  .type SYMBOL(zenithor_linked_index), @object
  .type SYMBOL(zenithor_linked_index_end), @object
  .type SYMBOL(zenithor_linked_terms), @object
  .type SYMBOL(zenithor_linked_terms_end), @object
  .hidden SYMBOL(zenithor_linked_index)
  .hidden SYMBOL(zenithor_linked_index_end)
  .hidden SYMBOL(zenithor_linked_terms)
  .hidden SYMBOL(zenithor_linked_terms_end)
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

#if defined(__wasm__)
/* The linker of WebAssembly keeps what has a size. */
  .size SYMBOL(zenithor_linked_index), SYMBOL(zenithor_linked_index_end) - SYMBOL(zenithor_linked_index)
  .size SYMBOL(zenithor_linked_index_end), 0
  .size SYMBOL(zenithor_linked_terms), SYMBOL(zenithor_linked_terms_end) - SYMBOL(zenithor_linked_terms)
  .size SYMBOL(zenithor_linked_terms_end), 0
#elif !defined(_WIN32)
#if defined(__CET__)
#include <cet.h> /* marks this part for control-flow enforcement, as the compiled ones are */
#endif
  .section .note.GNU-stack, "", @progbits
#endif
