set(sources
    CalcTables.h
    TableList.h
)
