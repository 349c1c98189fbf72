# Installs the build into an empty prefix and compares what lands there with the expected list;
# then checks that the desktop entry starts the launcher installed beside the module, with the
# icon installed under its name.
#   cmake -DCONSTRUCCION=build -DPREFIJO=tmp -DESPERADO=archivos_instalados.txt -P comprobar_instalacion.cmake
file(REMOVE_RECURSE "${PREFIJO}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${CONSTRUCCION}" --prefix "${PREFIJO}"
                RESULT_VARIABLE resultado OUTPUT_QUIET ERROR_VARIABLE errores)
if(NOT resultado EQUAL 0)
  message(FATAL_ERROR "cmake --install falló: ${errores}")
endif()

file(GLOB_RECURSE hallados LIST_DIRECTORIES false RELATIVE "${PREFIJO}" "${PREFIJO}/*")
list(SORT hallados)
file(STRINGS "${ESPERADO}" esperados REGEX "^[^#]")
list(SORT esperados)
if(NOT hallados STREQUAL esperados)
  set(sobran ${hallados})
  list(REMOVE_ITEM sobran ${esperados})
  set(faltan ${esperados})
  list(REMOVE_ITEM faltan ${hallados})
  message(FATAL_ERROR "La instalación no es la esperada.\n  Sobran: ${sobran}\n  Faltan: ${faltan}")
endif()

foreach(programa modulo0931 integrador_qvl f931)
  if(NOT IS_DIRECTORY "${PREFIJO}/bin" OR NOT EXISTS "${PREFIJO}/bin/${programa}")
    message(FATAL_ERROR "Falta bin/${programa}")
  endif()
  file(READ "${PREFIJO}/bin/${programa}" cabecera LIMIT 4 HEX)
  if(NOT cabecera STREQUAL "7f454c46")
    message(FATAL_ERROR "bin/${programa} no es un programa")
  endif()
endforeach()

file(STRINGS "${PREFIJO}/share/applications/qualvia-0931.desktop" entrada)
list(FILTER entrada INCLUDE REGEX "^(Exec|Icon|Type)=")
set(esperada "Type=Application;Exec=env QT_QPA_PLATFORM=xcb integrador_qvl --abrir-modulo;Icon=qualvia-0931")
if(NOT entrada STREQUAL esperada)
  message(FATAL_ERROR "Entrada de escritorio inesperada: ${entrada}")
endif()
find_program(VALIDAR desktop-file-validate)
if(VALIDAR)
  execute_process(COMMAND "${VALIDAR}" "${PREFIJO}/share/applications/qualvia-0931.desktop"
                  RESULT_VARIABLE resultado OUTPUT_VARIABLE salida ERROR_VARIABLE salida)
  if(NOT resultado EQUAL 0 OR salida MATCHES "error")
    message(FATAL_ERROR "desktop-file-validate: ${salida}")
  endif()
endif()
file(REMOVE_RECURSE "${PREFIJO}")
