# A plugin that Qt itself loads into the program (QT_QPA_GENERIC_PLUGINS), for whoever works it without a person:
# the sources of this folder, as velna_<name>, linked to the libraries named.
function(velna_window_plugin name)
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    add_library(velna_${name} MODULE ${sources})
    set_target_properties(velna_${name} PROPERTIES AUTOMOC ON PREFIX "lib"
        LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests/window/plugins/generic)
    target_link_libraries(velna_${name} PRIVATE velna_warnings Qt6::Gui ${ARGN})
endfunction()
