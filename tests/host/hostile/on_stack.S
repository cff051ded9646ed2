/* CallOnStack of on_stack.h, for the three calling conventions. */

  .text

#if defined(__i386__)

  .globl _CallOnStack
_CallOnStack:
  pushl %ebp
  movl %esp, %ebp
  movl 8(%ebp), %eax
  movl 12(%ebp), %ecx
  movl 16(%ebp), %esp
  subl $16, %esp
  movl %ecx, (%esp)
  call *%eax
  movl %ebp, %esp
  popl %ebp
  ret

#elif defined(_WIN32)

  .globl CallOnStack
CallOnStack:
  pushq %rbp
  movq %rsp, %rbp
  movq %rcx, %rax
  movq %rdx, %rcx
  movq %r8, %rsp
  subq $32, %rsp
  call *%rax
  movq %rbp, %rsp
  popq %rbp
  ret

#else

  .globl CallOnStack
CallOnStack:
  pushq %rbp
  movq %rsp, %rbp
  movq %rdi, %rax
  movq %rsi, %rdi
  movq %rdx, %rsp
  call *%rax
  movq %rbp, %rsp
  popq %rbp
  ret

  .section .note.GNU-stack, "", @progbits

#endif
