# What every target of the tree is compiled with.
add_library(morvl15_options INTERFACE)
target_compile_options(morvl15_options INTERFACE
  -Wall -Wextra -Wconversion -Wshadow -Werror
  $<$<COMPILE_LANGUAGE:CXX>:-fno-rtti>)
target_include_directories(morvl15_options INTERFACE ${PROJECT_SOURCE_DIR}/include)

# Doubles are computed operation by operation, as written: a fused multiplication and addition rounds otherwise.
target_compile_options(morvl15_options INTERFACE -ffp-contract=off)

if(WIN32)
  # Doubles are computed in SSE2 registers, so that they have the same bits as on the native host.
  target_compile_options(morvl15_options INTERFACE -msse2 -mfpmath=sse)
  target_link_options(morvl15_options INTERFACE -static)
endif()

if(MORVL15_SANITIZE)
  target_compile_options(morvl15_options INTERFACE
    -fsanitize=${MORVL15_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(morvl15_options INTERFACE -fsanitize=${MORVL15_SANITIZE})
endif()
