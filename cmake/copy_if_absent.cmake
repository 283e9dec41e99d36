# cmake -D FROM=file -D TO=file -P copy_if_absent.cmake: copies FROM to TO unless TO exists.
if(NOT EXISTS "${TO}")
  file(COPY_FILE "${FROM}" "${TO}")
endif()
