# The programs of the language that the tests run: each *.tsc file, or folder, of a directory is one test, on the
# console host, and another one with its windows.
# A program without an expectation file beside it would prove nothing, so it fails the configuration.

# tessera_programs(PREFIX directory of the programs, directory of their expectations)
# Those in TESSERA_NEED_PARTS run where the parts that stand on Qt are built.
set(TESSERA_NEED_PARTS Biblioteca Bloco Nota Precos letters_of_an_image_are_its_own)

function(tessera_programs prefix programs expectations)
  file(GLOB found CONFIGURE_DEPENDS ${programs}/*)
  foreach(program IN LISTS found)
    get_filename_component(name ${program} NAME_WE)
    if(NOT program MATCHES "\\.tsc$" AND NOT IS_DIRECTORY ${program})
      continue()
    endif()
    if(NOT TESSERA_DESKTOP AND name IN_LIST TESSERA_NEED_PARTS)
      continue()
    endif()
    file(GLOB expected CONFIGURE_DEPENDS ${expectations}/${name}.out ${expectations}/${name}.err)
    if(NOT expected)
      message(FATAL_ERROR "${program} has neither ${name}.out nor ${name}.err in ${expectations}")
    endif()
    add_test(NAME ${prefix}.${name}
      COMMAND ${CMAKE_SOURCE_DIR}/tests/run_program.sh $<TARGET_FILE:tessera> ${program} ${expectations}/${name})
    set(tests ${prefix}.${name})
    if(TESSERA_DESKTOP)
      add_test(NAME ${prefix}.windows.${name}
        COMMAND ${CMAKE_SOURCE_DIR}/tests/run_program.sh --windows $<TARGET_FILE:tessera> ${program}
          ${expectations}/${name})
      list(APPEND tests ${prefix}.windows.${name})
    endif()
    set_tests_properties(${tests} PROPERTIES TIMEOUT 60)
  endforeach()
endfunction()

tessera_programs(programs ${CMAKE_SOURCE_DIR}/tests/programs ${CMAKE_SOURCE_DIR}/tests/programs)
tessera_programs(media ${CMAKE_SOURCE_DIR}/tests/media/programs ${CMAKE_SOURCE_DIR}/tests/media/programs)
tessera_programs(examples ${CMAKE_SOURCE_DIR}/examples ${CMAKE_SOURCE_DIR}/tests/examples)

# The manual: its examples run, and each word has its page.
if(NOT TESSERA_DESKTOP)
  set(without --without=Imagem,Imp,Rel,Rel.TestaFimPag,SQL,relatorios,sql)
endif()
add_test(NAME manual.examples COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/manual/run_examples.py ${without}
  $<TARGET_FILE:tessera> ${CMAKE_SOURCE_DIR}/docs/manual)
add_test(NAME manual.every_word COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/manual/every_word.py
  $<TARGET_FILE:tessera> ${CMAKE_SOURCE_DIR}/docs/manual)
set_tests_properties(manual.examples manual.every_word PROPERTIES TIMEOUT 120)
