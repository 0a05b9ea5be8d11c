# The packages that the runtime stands on: those of its executable and of the windows inside it. Takes both as `files`.
set(workshop ${CPACK_PACKAGE_DIRECTORY}/needs)
file(WRITE ${workshop}/debian/control "")  # the tool wants one to be there
execute_process(COMMAND dpkg-shlibdeps -O ${files}
  WORKING_DIRECTORY ${workshop} OUTPUT_VARIABLE told OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE ${workshop})
string(REGEX REPLACE "^shlibs:Depends=" "" CPACK_DEBIAN_TESSERA-RUNTIME_PACKAGE_DEPENDS "${told}")
