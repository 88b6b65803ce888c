# cmake -DSKELDA_SOURCE=<tree> -DCONSUMER=<consumer project> -DWORK=<build folder> -DGENERATOR=<g>
cmake_minimum_required(VERSION 3.25)
#       -P BuildConsumer.cmake
#
# Configures the small consumer project, which adds Skelda's tree with add_subdirectory, builds
# its one program (which links the decoder) and runs it.
execute_process(COMMAND ${CMAKE_COMMAND} -S ${CONSUMER} -B ${WORK} -G ${GENERATOR} -DSKELDA_SOURCE=${SKELDA_SOURCE}
                RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "the consumer project doesn't configure")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK} --target decode RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "the consumer's program doesn't build")
endif()
execute_process(COMMAND ${WORK}/decode "LFPB 021000Z 24012KT 9999 FEW016 12/06 Q1016"
                OUTPUT_VARIABLE output RESULT_VARIABLE result)
if(NOT result EQUAL 0 OR NOT output MATCHES "LFPB 12 kt from 240, 12 C, 1016 hPa")
    message(FATAL_ERROR "the consumer's program gave: ${output}")
endif()
message(STATUS "${output}")
