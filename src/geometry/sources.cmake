set(sources
    TrueRoad.cpp
    TrueRoad.h
)
