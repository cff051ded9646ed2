#ifndef TESTS_HOST_HOSTILE_ON_STACK_H
#define TESTS_HOST_HOSTILE_ON_STACK_H

/* Calls run(argument) on another stack, of which `top`, a multiple of 16, is the upper end. */
extern void CallOnStack(void (*run)(void*), void* argument, void* top);

#endif
