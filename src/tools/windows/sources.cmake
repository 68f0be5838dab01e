set(sources
    frmFhdx.cpp
    frmFhdx.h
    frmQljs.cpp
    frmQljs.h
    frmZbzfs.cpp
    frmZbzfs.h
)
