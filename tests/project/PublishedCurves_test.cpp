// A published list of straights, curves and deflections of a real road, met through LoadProject.

#include "base/Numbers.h"
#include "project/LoadProject.h"
#include "support/ProjectFolder.h"
#include "support/ScriptedDialogs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <regex>

namespace {

using Object = std::map<std::string, std::string>;

/// The innermost objects of a JSON text, each as key and bare value.
std::vector<Object> innermostObjects(const std::string& json)
{
    std::vector<Object> objects;
    const std::regex object(R"(\{[^{}]*\})"), member(R"re("([^"]+)":\s*(?:"([^"]*)"|([-+.\deE]+)))re");
    for (std::sregex_iterator o(json.begin(), json.end(), object), end; o != end; ++o) {
        const std::string text = o->str();
        Object found;
        for (std::sregex_iterator m(text.begin(), text.end(), member); m != end; ++m)
            found[(*m)[1]] = (*m)[2].str() + (*m)[3].str();
        objects.push_back(found);
    }
    return objects;
}

double value(const Object& object, const char* key) { return std::stod(object.at(key)); }

/// Degrees of a text such as 289°06′33″.
double degrees(const std::string& dms)
{
    int d = 0, m = 0, s = 0;
    EXPECT_EQ(std::sscanf(dms.c_str(), "%d°%d′%d″", &d, &m, &s), 3) << dms;
    return d + m / 60.0 + s / 3600.0;
}

}  // namespace

TEST(PublishedCurves, EveryStationTangentLengthAndAzimuthIsMet)
{
    ScriptedDialogs dialogs;
    ProjectFolder folder;
    const auto objects =
        innermostObjects(ProjectFolder::bytesOf(VM_TEST_DATA "/alignment_curve_table_five_points.json"));

    std::string text;
    std::map<std::string, std::size_t> index;
    for (const auto& o : objects) {
        if (!o.count("N")) continue;
        const std::string point = o.at("N") + "," + o.at("E");
        if (o.count("R")) {
            index[o.at("name")] = index.size() + 1;
            text += o.at("name") + "," + point + "," + o.at("Ls1") + "," + o.at("Ls2") + "," + o.at("R") + "\r\n";
        } else {
            text += (text.empty() ? "0," : "") + point + "\r\n";
        }
    }
    ASSERT_EQ(index.size(), 5u);
    folder.write("其他参数.txt", "交点法\r\n线性\r\n2\r\n3\r\n12\r\n");
    folder.write("平曲线参数.txt", text);
    LoadProject();
    ASSERT_EQ(gZdCount, 5);

    const double tolerance = 0.0012;  // the list is rounded to 1 mm; its own residual is 1.088 mm
    const double second = 1.0 / 3600;
    int met = 0;
    for (const auto& o : objects) {
        if (o.count("station")) {
            const std::string key = o.at("key"), point = key.substr(4);
            const auto i = index.at(key.substr(0, 3));
            const std::map<std::string, double> stations{
                {"ZH", gZdZhLc[i]}, {"HY", gZdHyLc[i]}, {"QZ", (gZdHyLc[i] + gZdYhLc[i]) / 2},
                {"YH", gZdYhLc[i]}, {"HZ", gZdHzLc[i]}, {"ZY", gZdZhLc[i]},
                {"YZ", gZdHzLc[i]}};
            EXPECT_NEAR(stations.at(point), value(o, "station"), tolerance) << key;
            ++met;
        } else if (o.count("station_PI")) {
            const auto i = index.at(o.at("name"));
            SCOPED_TRACE(o.at("name"));
            EXPECT_NEAR(gZdZhLc[i] + gZdT1[i], value(o, "station_PI"), tolerance);
            EXPECT_NEAR(gZdT1[i], value(o, "T1"), tolerance);
            EXPECT_NEAR(gZdT2[i], value(o, "T2"), tolerance);
            EXPECT_NEAR(gZdHzLc[i] - gZdZhLc[i], value(o, "L"), tolerance);
            EXPECT_NEAR(gZdYhLc[i] - gZdHyLc[i], value(o, "Ly"), tolerance);
            EXPECT_EQ(gJdR[i] > 0, o.at("turn") == "right");
            ++met;
        } else if (o.count("leg") && o.at("leg") != "JD5-JD6") {  // the list rounds seconds: half a second and a bit
            const auto i = index.at(o.at("leg").substr(o.at("leg").find('-') + 1));
            EXPECT_NEAR(DmsToDeg(gZdZhFwj[i]), degrees(o.at("azimuth_dms")), 0.6 * second) << o.at("leg");
            const double before = i == 1 ? 0 : gZdHzLc[i - 1];
            EXPECT_NEAR(gZdZhLc[i] - before, value(o, "straight_between_curves"), tolerance) << o.at("leg");
            ++met;
        } else if (o.count("leg")) {
            EXPECT_NEAR(DmsToDeg(Azimuth(gJdX[6] - gJdX[5], gJdY[6] - gJdY[5])), degrees(o.at("azimuth_dms")),
                        0.6 * second);
            EXPECT_NEAR(Distance(gJdX[6] - gJdX[5], gJdY[6] - gJdY[5]), value(o, "PI_distance"), tolerance);
            ++met;
        }
    }
    EXPECT_EQ(met, 23 + 5 + 6);
}
