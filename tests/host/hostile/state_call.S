/* CallInState of state_call.h, for the three calling conventions. Offsets are those of StateCall:
 * entry 0, misalignment 8, control_word 16, mxcsr 24, raise 32, filled 40, counts_down 48,
 * word_count 56, words 64, registers 128, result 152, control_word_after 160,
 * status_word_after 168, mxcsr_after 176, flags_after 184, environment 192. */

#if defined(__i386__)
#define BASE %ebx
#define COUNTER %ecx
#define PUSH_FLAGS pushfl
#define POP_COUNTER popl %ecx
#else
#define BASE %rbx
#define COUNTER %rcx
#define PUSH_FLAGS pushfq
#define POP_COUNTER popq %rcx
#endif

  .text

/* The state before the call. Uses ecx. */
.macro ENTER_STATE
  fninit
  cmpl $0, 32(BASE)
  je 1f
  fld1
  fldz
  fdivrp %st, %st(1)
  fstp %st(0)
1:
  movl 40(BASE), %ecx
2:
  testl %ecx, %ecx
  jz 3f
  fld1
  decl %ecx
  jmp 2b
3:
  ldmxcsr 24(BASE)
  fldcw 16(BASE)
.endm

.macro COUNT_DOWN_IF_ASKED
  cmpl $0, 48(BASE)
  je 4f
  std
4:
.endm

/* The state after the call, up to the result. */
.macro SAVE_STATE
  fnstcw 160(BASE)
  fnstsw 168(BASE)
  stmxcsr 176(BASE)
  PUSH_FLAGS
  POP_COUNTER
  mov COUNTER, 184(BASE)
  cld
  fwait
.endm

.macro LEAVE_STATE
  fnstenv 192(BASE)
  fninit
  movl $0x1F80, 24(BASE)
  ldmxcsr 24(BASE)
.endm

#if defined(__i386__)

  .globl _CallInState
_CallInState:
  pushl %ebp
  movl %esp, %ebp
  pushl %ebx
  pushl %esi
  pushl %edi
  movl 8(%ebp), %ebx
  andl $-16, %esp
  movl 56(%ebx), %ecx
  leal 15(,%ecx,4), %eax
  andl $-16, %eax
  subl %eax, %esp
  subl 8(%ebx), %esp
  leal 64(%ebx), %esi
  movl %esp, %edi
  rep movsl
  ENTER_STATE
  COUNT_DOWN_IF_ASKED
  call *(%ebx)
  SAVE_STATE
  fstpl 152(%ebx)
  LEAVE_STATE
  leal -12(%ebp), %esp
  popl %edi
  popl %esi
  popl %ebx
  popl %ebp
  ret

#elif defined(_WIN32)

  .globl CallInState
CallInState:
  pushq %rbp
  movq %rsp, %rbp
  pushq %rbx
  pushq %rdi
  pushq %rsi
  movq %rcx, %rbx
  andq $-16, %rsp
  subq $64, %rsp
  subq 8(%rbx), %rsp
  leaq 64(%rbx), %rsi
  movq %rsp, %rdi
  movl $8, %ecx
  rep movsq
  ENTER_STATE
  movq 64(%rbx), %rcx
  movq 72(%rbx), %rdx
  movq 80(%rbx), %r8
  movq 88(%rbx), %r9
  movq %rcx, %xmm0
  movq %rdx, %xmm1
  movq %r8, %xmm2
  movq %r9, %xmm3
  COUNT_DOWN_IF_ASKED
  call *(%rbx)
  SAVE_STATE
  movsd %xmm0, 152(%rbx)
  LEAVE_STATE
  leaq -24(%rbp), %rsp
  popq %rsi
  popq %rdi
  popq %rbx
  popq %rbp
  ret

#else

  .globl CallInState
CallInState:
  pushq %rbp
  movq %rsp, %rbp
  pushq %rbx
  pushq %r12
  movq %rdi, %rbx
  andq $-16, %rsp
  subq 8(%rbx), %rsp
  ENTER_STATE
  movsd 64(%rbx), %xmm0
  movsd 72(%rbx), %xmm1
  movsd 80(%rbx), %xmm2
  movsd 88(%rbx), %xmm3
  movsd 96(%rbx), %xmm4
  movsd 104(%rbx), %xmm5
  movq 128(%rbx), %rdi
  movq 136(%rbx), %rsi
  movq 144(%rbx), %rdx
  COUNT_DOWN_IF_ASKED
  call *(%rbx)
  SAVE_STATE
  movsd %xmm0, 152(%rbx)
  LEAVE_STATE
  leaq -16(%rbp), %rsp
  popq %r12
  popq %rbx
  popq %rbp
  ret

  .section .note.GNU-stack, "", @progbits

#endif
