# zorbik_sets(TARGET [DESTINATION folder] SOURCES a.txt b.txt ... [TRANSLATIONS texts/a_en.txt ...]): cave sets built from
# their readable form. Each a.txt becomes a.zb in the folder, which is data/Komnaty of the build folder unless another is
# named; each texts/a_en.txt becomes a_en.zb, which is the first source with those texts.
function(zorbik_sets target)
  cmake_parse_arguments(sets "" "DESTINATION" "SOURCES;TRANSLATIONS" ${ARGN})
  if(NOT sets_DESTINATION)
    set(sets_DESTINATION ${CMAKE_BINARY_DIR}/data/Komnaty)
  endif()
  file(MAKE_DIRECTORY ${sets_DESTINATION})
  set(results)
  foreach(source IN LISTS sets_SOURCES)
    get_filename_component(source ${source} ABSOLUTE)
    get_filename_component(name ${source} NAME_WLE)
    set(result ${sets_DESTINATION}/${name}.zb)
    add_custom_command(
      OUTPUT ${result} COMMAND zbtext --to-set ${source} ${result} DEPENDS zbtext ${source}
      COMMENT "Building cave set ${name}.zb" VERBATIM)
    list(APPEND results ${result})
  endforeach()
  foreach(texts IN LISTS sets_TRANSLATIONS)
    get_filename_component(texts ${texts} ABSOLUTE)
    get_filename_component(name ${texts} NAME_WLE)
    list(GET sets_SOURCES 0 source)
    get_filename_component(source ${source} ABSOLUTE)
    set(result ${sets_DESTINATION}/${name}.zb)
    add_custom_command(
      OUTPUT ${result} COMMAND zbtext --to-set --texts ${texts} ${source} ${result} DEPENDS zbtext ${source} ${texts}
      COMMENT "Building cave set ${name}.zb" VERBATIM)
    list(APPEND results ${result})
  endforeach()
  add_custom_target(${target} ALL DEPENDS ${results})
endfunction()
