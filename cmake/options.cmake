# How everything is compiled. Numbers must be the same on every build: no contraction of
# multiply-add, no fast-math, and SSE2 in place of the x87 unit on 32-bit.
add_library(ondrel_common_options INTERFACE)
target_compile_options(ondrel_common_options INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Werror;-ffp-contract=off>)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
  target_compile_options(ondrel_common_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-msse2;-mfpmath=sse>)
endif()
if(WIN32)
  # One file, no DLL beside Windows' own.
  target_link_options(ondrel_common_options INTERFACE -static)
endif()

add_library(ondrel_product_options INTERFACE)
target_link_libraries(ondrel_product_options INTERFACE ondrel_common_options)
target_compile_options(ondrel_product_options INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions;-fno-rtti>)

if(ONDREL_SANITIZE)
  add_compile_options(-fsanitize=${ONDREL_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  string(REPLACE "fuzzer-no-link," "" link_sanitizers "${ONDREL_SANITIZE}")
  add_link_options(-fsanitize=${link_sanitizers})
endif()
