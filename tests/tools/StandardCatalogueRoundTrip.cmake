# Checks the standard catalogue that the build made from data/ with the tool:
#   the catalogue validates, converts back to sheets identical to data/, and those sheets convert to
#   a catalogue identical to it. Runs the tool the build made (under Wine for the Windows build).
#
# cmake -DTOOL=<velmora-katalog> -DEMULATOR=<runner or empty> -DCATALOGUE=<Potrubi_std.qxp>
#       -DDATA=<data folder> -DWORK=<scratch folder> -P StandardCatalogueRoundTrip.cmake

function(run_tool)
  execute_process(COMMAND ${EMULATOR} ${TOOL} ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
                  ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "velmora-katalog ${ARGN} failed (${result}):\n${output}${errors}")
  endif()
  message(STATUS "${output}")
endfunction()

function(expect_same_file actual expected)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${actual} ${expected} RESULT_VARIABLE different)
  if(different)
    message(FATAL_ERROR "${actual} differs from ${expected}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})

run_tool(--help)
run_tool(validate ${CATALOGUE})
run_tool(qxp2csv ${CATALOGUE} ${WORK}/csv)
expect_same_file(${WORK}/csv/materialy.csv ${DATA}/materialy.csv)
expect_same_file(${WORK}/csv/profily.csv ${DATA}/profily.csv)
run_tool(csv2qxp ${WORK}/csv ${WORK}/again.qxp)
expect_same_file(${WORK}/again.qxp ${CATALOGUE})

file(REMOVE_RECURSE ${WORK})
