# What the compiler guards the finished libraries with: docs/reliability.md has what each costs and
# what a platform cannot have. None of it touches the arithmetic. The sanitizers' builds go without:
# they look closer.
set(guards -fstack-protector-strong)
if(NOT WIN32)
  # A frame larger than the guard page touches every page on its way. (On Windows compilers always
  # see to that, and the headers have no fortified functions.)
  list(APPEND guards -fstack-clash-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    list(APPEND guards -fcf-protection=full)
  endif()
endif()
# tools/run/hardening_cost.sh counts what each of them costs.
if(DEFINED ZENITHOR_GUARDS)
  set(guards ${ZENITHOR_GUARDS})
endif()
target_compile_options(zenithor_library_flags INTERFACE ${guards})
