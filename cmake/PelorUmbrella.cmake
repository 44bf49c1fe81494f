# pelor_check_umbrella(UMBRELLA PATTERN [EXTRA...]): stops the configuration unless pelor/UMBRELLA includes, in
# sorted order, exactly the public headers that match pelor/PATTERN, and the EXTRA ones.
function(pelor_check_umbrella umbrella pattern)
  set(path ${PROJECT_SOURCE_DIR}/pelor/${umbrella})
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${path})

  get_target_property(headers pelor HEADER_SET)
  list(TRANSFORM headers REPLACE "^${PROJECT_SOURCE_DIR}/" "")
  list(FILTER headers INCLUDE REGEX "^pelor/${pattern}$")
  list(APPEND headers ${ARGN})
  list(REMOVE_ITEM headers pelor/${umbrella})
  list(SORT headers)

  file(STRINGS ${path} includes REGEX "^#include <pelor/")
  list(TRANSFORM includes REPLACE "^#include <(.*)>$" "\\1")
  if(NOT headers STREQUAL includes)
    list(TRANSFORM headers REPLACE "(.+)" "  #include <\\1>")
    list(JOIN headers "\n" wanted)
    # Indented lines are printed as they are.
    message(FATAL_ERROR "pelor/${umbrella} does not list its headers. It should hold these lines:\n\n${wanted}\n")
  endif()
endfunction()
