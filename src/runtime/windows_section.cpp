// The part with the windows, in a section of this file (image/seal.h) that the system does not load.

asm(".pushsection .tessera.windows, \"\", %progbits\n"
    ".incbin \"" TESSERA_WINDOWS
    "\"\n"
    ".popsection\n");
