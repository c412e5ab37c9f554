# GLOBAL: the tests make their pictures with the writers of the same libraries.
find_package(TIFF 4.5 REQUIRED GLOBAL) # the first with handlers of its own for each open file
find_package(JPEG REQUIRED GLOBAL)
find_package(PNG REQUIRED GLOBAL)
find_package(GIF 5 REQUIRED GLOBAL)
