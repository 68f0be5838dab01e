#include "exchange/LandXmlUnits.h"

#include "exchange/ExchangeError.h"
#include "exchange/LandXmlNode.h"

#include <array>
#include <cctype>
#include <cmath>
#include <numbers>
#include <utility>

namespace landxml {

namespace {

/// Without blanks and strokes, in small letters: "decimal  dd.mm.ss" and "Decimal dd.mm.ss" are one unit.
std::string folded(std::string_view text)
{
    std::string out;
    for (const unsigned char c : text)
        if (!std::isspace(c) && c != '_' && c != '-') out += static_cast<char>(std::tolower(c));
    return out;
}

struct Length {
    std::string_view name;
    double metres;
    std::string_view chinese;
};
constexpr std::string_view kFoot = "国际英尺（0.3048 米）", kSurveyFoot = "美国测量英尺（1200/3937 米）";
/// The two feet differ by 2 in a million: 0.3048 m, and 1200/3937 m of the United States survey. First the names of the
/// format, then those that programs write beside it.
constexpr std::array kLengths{
    Length{"meter", 1, ""},
    Length{"millimeter", 0.001, "毫米"},
    Length{"centimeter", 0.01, "厘米"},
    Length{"kilometer", 1000, "公里"},
    Length{"foot", 0.3048, kFoot},
    Length{"ussurveyfoot", 1200.0 / 3937.0, kSurveyFoot},
    Length{"inch", 0.0254, "英寸（0.0254 米）"},
    Length{"mile", 1609.344, "英里（1609.344 米）"},
    Length{"metre", 1, ""},
    Length{"meters", 1, ""},
    Length{"metres", 1, ""},
    Length{"m", 1, ""},
    Length{"millimetre", 0.001, "毫米"},
    Length{"mm", 0.001, "毫米"},
    Length{"feet", 0.3048, kFoot},
    Length{"internationalfoot", 0.3048, kFoot},
    Length{"internationalfeet", 0.3048, kFoot},
    Length{"ussurveyfeet", 1200.0 / 3937.0, kSurveyFoot},
    Length{"surveyfoot", 1200.0 / 3937.0, kSurveyFoot},
    Length{"footus", 1200.0 / 3937.0, kSurveyFoot},
    Length{"usfoot", 1200.0 / 3937.0, kSurveyFoot},
};

std::optional<AngleUnit> angleUnit(std::string_view name)
{
    const std::string plain = folded(name);
    if (plain.empty() || plain == "radians" || plain == "radian") return AngleUnit::Radians;
    if (plain == "grads" || plain == "grad" || plain == "gon" || plain == "gons") return AngleUnit::Grads;
    if (plain == "decimaldegrees" || plain == "decimaldegree" || plain == "degrees" || plain == "degree")
        return AngleUnit::Degrees;
    if (plain == "decimaldd.mm.ss" || plain == "dd.mm.ss") return AngleUnit::Dms;
    return std::nullopt;
}

}  // namespace

Units ReadUnits(const pugi::xml_node& root)
{
    const auto units = ChildOf(root, "Units");
    auto system = ChildOf(units, "Metric");
    if (!system) system = ChildOf(units, "Imperial");
    if (!system) throw ExchangeError("文件没有写明长度单位（Units）");
    const std::string name = system.attribute("linearUnit").as_string();
    Units result;
    const std::string direction = system.attribute("directionUnit").as_string();
    result.direction = angleUnit(direction);
    if (!result.direction) result.remarks.push_back("不认识的方向单位“" + direction + "”，没有核对文件里的方向");
    for (const auto& length : kLengths) {
        if (folded(name) != length.name) continue;
        result.metres = length.metres;
        if (!length.chinese.empty())
            result.remarks.push_back("文件的长度单位是" + std::string(length.chinese) + "，已全部换算成米");
        return result;
    }
    throw ExchangeError("不认识的长度单位“" + name + "”");
}

double RadiansOf(double written, AngleUnit unit)
{
    constexpr double degree = std::numbers::pi / 180;
    switch (unit) {
    case AngleUnit::Radians:
        return written;
    case AngleUnit::Grads:
        return written * std::numbers::pi / 200;
    case AngleUnit::Degrees:
        return written * degree;
    case AngleUnit::Dms:
        break;
    }
    const double size = std::abs(written) + 1e-11, whole = std::floor(size), rest = (size - whole) * 100;
    const double minutes = std::floor(rest), seconds = (rest - minutes) * 100;
    return std::copysign((whole + minutes / 60 + seconds / 3600) * degree, written);
}

std::string_view NameOf(AngleUnit unit)
{
    constexpr std::array<std::string_view, 4> kNames{"弧度", "百分度", "十进制度", "度.分秒"};
    return kNames[static_cast<std::size_t>(unit)];
}

}  // namespace landxml
