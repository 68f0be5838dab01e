set(sources
    frmSjName.cpp
    frmSjName.h
)
