#pragma once
// What all sections of a .dxf file are made of: group codes with their values, and the handles of its records.

#include <string>
#include <utility>
#include <vector>

using DxfHandle = unsigned;
inline constexpr DxfHandle kNoHandle = 0;

/// Group codes and values, a line each.
class DxfGroups {
public:
    void text(int code, const std::string& value);
    void name(int code, const std::string& utf8);  ///< as one line: ^J and the like stand for control characters
    void integer(int code, long value) { text(code, std::to_string(value)); }
    void handle(int code, DxfHandle value);
    void real(int code, double value);
    void point(int code, double x, double y)
    {
        real(code, x);
        real(code + 10, y);
    }
    void point(int code, double x, double y, double z)
    {
        point(code, x, y);
        real(code + 20, z);
    }
    void begin(const char* section);
    void end() { text(0, "ENDSEC"); }
    std::string take() { return std::move(m_bytes); }

private:
    std::string m_bytes;
};

/// Handles are given out in this order, so that each record can name the others before they are written.
struct DxfHandles {
    DxfHandle next = 1;
    DxfHandle take() { return next++; }

    DxfHandle vportTable = take(), ltypeTable = take(), layerTable = take(), styleTable = take(), viewTable = take(),
              ucsTable = take(), appidTable = take(), dimstyleTable = take(), blockTable = take();
    DxfHandle rootDictionary = take(), groups = take(), layouts = take(), modelLayout = take(), paperLayout = take();
    DxfHandle modelSpace = take(), paperSpace = take();
    std::vector<DxfHandle> blocks;  ///< records of the drawing's blocks
};
