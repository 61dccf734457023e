# cmake -DOUTPUT=file -DFRAGMENTS=a;b;c -P ConcatenateFiles.cmake
file(WRITE ${OUTPUT}.tmp "")
foreach(fragment ${FRAGMENTS})
    file(READ ${fragment} content)
    file(APPEND ${OUTPUT}.tmp "${content}")
endforeach()
file(RENAME ${OUTPUT}.tmp ${OUTPUT})
