# The last line of each folder of tests: zenithor_label_tests(KIND). Each test of the folder gets
# the label "<preset> <kind>", so that ctest says what each group took, and a time limit where it
# has none of its own.
function(zenithor_label_tests kind)
  get_filename_component(preset ${PROJECT_BINARY_DIR} NAME)
  get_property(tests DIRECTORY PROPERTY TESTS)
  foreach(test ${tests})
    set_property(TEST ${test} APPEND PROPERTY LABELS "${preset} ${kind}")
    get_property(limit TEST ${test} PROPERTY TIMEOUT)
    if(NOT limit)
      set_property(TEST ${test} PROPERTY TIMEOUT 600)
    endif()
  endforeach()
endfunction()
