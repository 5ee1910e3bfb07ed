# Every room is a library of its own: what links shows what depends on what. A target sees the headers of what
# it links and no others, through a folder of links to them in the build folder.

add_library(tarnlog_options INTERFACE)
target_compile_options(tarnlog_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # This compiler sees overlapping copies in plain string concatenation when it optimises.
  target_compile_options(tarnlog_options INTERFACE $<$<CONFIG:Release>:-Wno-restrict>)
endif()
if(TARNLOG_SANITIZE)
  target_compile_options(tarnlog_options INTERFACE -fsanitize=${TARNLOG_SANITIZE} -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(tarnlog_options INTERFACE -fsanitize=${TARNLOG_SANITIZE})
endif()

# The package has parts, so that a recorder without a window needs no Qt, and one that publishes nothing no MQTT: see
# Package.cmake.
function(tarnlog_part_of name result)
  if(name MATCHES "^tarnlog_(ui_|controls)")
    set(${result} Ui PARENT_SCOPE)
  elseif(name STREQUAL tarnlog_publish)
    set(${result} Publish PARENT_SCOPE)
  elseif(CMAKE_CURRENT_SOURCE_DIR MATCHES "^${PROJECT_SOURCE_DIR}/host/")
    set(${result} Vehicle PARENT_SCOPE)
  else()
    set(${result} Core PARENT_SCOPE)
  endif()
endfunction()

# The headers in this folder that no target has shown yet.
function(tarnlog_headers_here result)
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  get_property(shown DIRECTORY PROPERTY TARNLOG_SHOWN_HEADERS)
  list(REMOVE_ITEM headers ${shown})
  set(${result} ${headers} PARENT_SCOPE)
endfunction()

# tarnlog_show_headers(NAME SCOPE headers...): who links NAME finds these headers, under their paths from src/, or from
# the top where they do not lie there.
function(tarnlog_show_headers name scope)
  set_property(DIRECTORY APPEND PROPERTY TARNLOG_SHOWN_HEADERS ${ARGN})
  set(room ${PROJECT_BINARY_DIR}/rooms/${name})
  file(REMOVE_RECURSE ${room})
  foreach(header IN LISTS ARGN)
    file(RELATIVE_PATH path ${PROJECT_SOURCE_DIR} ${header})
    string(REGEX REPLACE "^src/" "" path ${path})
    cmake_path(GET path PARENT_PATH folder)
    file(MAKE_DIRECTORY ${room}/${folder})
    file(CREATE_LINK ${header} ${room}/${path} SYMBOLIC)
  endforeach()
  target_include_directories(${name} ${scope} $<BUILD_INTERFACE:${room}>)
endfunction()

# tarnlog_layer(NAME sources... [HEADERS headers...] DEPENDS libraries... [PRIVATE_DEPENDS libraries...])
# Without HEADERS, all in the folder that no target before it has named.
function(tarnlog_layer name)
  cmake_parse_arguments(PARSE_ARGV 1 LAYER "" "" "HEADERS;DEPENDS;PRIVATE_DEPENDS")
  add_library(${name} STATIC ${LAYER_UNPARSED_ARGUMENTS})
  set(headers ${LAYER_HEADERS})
  list(TRANSFORM headers PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  if(NOT headers)
    tarnlog_headers_here(headers)
  endif()
  tarnlog_show_headers(${name} PUBLIC ${headers})
  target_include_directories(${name} PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/tarnlog>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_link_libraries(${name} PUBLIC ${LAYER_DEPENDS} PRIVATE $<BUILD_INTERFACE:tarnlog_options>
                                                                ${LAYER_PRIVATE_DEPENDS})
  tarnlog_part_of(${name} part)
  install(TARGETS ${name} EXPORT Tarnlog2001${part}Targets COMPONENT library
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
endfunction()
