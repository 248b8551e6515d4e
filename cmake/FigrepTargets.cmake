# Helpers that give every target the same warnings, sanitizers and exact double arithmetic.

# -Wrestrict: g++ 12 sees overlaps in plain string concatenation that aren't there.
function(figrep_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                           -Wno-overloaded-virtual $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict> -ffp-contract=off)
  if(FIGREP_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(FIGREP_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${FIGREP_SANITIZE} -fno-omit-frame-pointer
                                             -fno-sanitize-recover=all)
    target_link_options(${target} PRIVATE -fsanitize=${FIGREP_SANITIZE})
  endif()
endfunction()

# figrep_library(NAME INCLUDE dir... DEPENDS target... SOURCES file...)
# makes the library `figrep_NAME` with the alias `figrep::NAME`.
function(figrep_library name)
  cmake_parse_arguments(ARG "" "" "INCLUDE;PRIVATE_INCLUDE;DEPENDS;PRIVATE_DEPENDS;SOURCES" ${ARGN})
  if(ARG_SOURCES)
    add_library(figrep_${name} STATIC ${ARG_SOURCES})
    set(scope PUBLIC)
    figrep_options(figrep_${name})
    target_include_directories(figrep_${name} PRIVATE ${ARG_PRIVATE_INCLUDE})
    target_link_libraries(figrep_${name} PRIVATE ${ARG_PRIVATE_DEPENDS})
  else()
    add_library(figrep_${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  add_library(figrep::${name} ALIAS figrep_${name})
  target_include_directories(figrep_${name} ${scope} ${ARG_INCLUDE})
  target_link_libraries(figrep_${name} ${scope} ${ARG_DEPENDS})
endfunction()
