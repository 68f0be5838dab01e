set(sources
    Phone.cpp
    Phone.h
)
