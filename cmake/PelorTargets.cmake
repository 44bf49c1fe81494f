# What every target of the project shares: warnings, sanitizers, and how a feature that lacks its package is named.

# pelor_feature_off(FEATURE DEPENDENCY PACKAGE): says that FEATURE is left out, and what would bring it in.
function(pelor_feature_off feature dependency package)
  message(STATUS "Pelor: ${feature} switched off: ${dependency} was not found (Debian package ${package})")
endfunction()

add_library(pelor_options INTERFACE)
target_compile_options(pelor_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2
  # g++ cannot follow a shared body's count: it takes the end of the last but one handle for the body's, and the
  # last handle for a use after it.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-use-after-free>
  # g++ 12 sees an overlap in std::string's assignment of a literal where there is none.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
if(PELOR_WERROR)
  target_compile_options(pelor_options INTERFACE -Werror)
endif()

if(PELOR_SANITIZE)
  add_compile_options(-fsanitize=${PELOR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${PELOR_SANITIZE})
endif()
