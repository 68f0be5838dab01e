#pragma once
// What the boxes of the calculation windows say about themselves: unit, form of an angle, meaning of a minus.

#include <QString>

namespace hint {
inline const QString stake =
    QStringLiteral("里程，米：12345.678 就是 K12+345.678。长链重复段的第二遍前面加负号：-10110。");
inline const QString step =
    QStringLiteral("间距，米，大于 0。从开始里程起逐次累加，不足一个间距的零头没有单独的一行。");
inline const QString offset = QStringLiteral("偏距，米，从中线量起，不带正负号；左右由前面的“左边桩”“右边桩”决定。");
inline const QString runOffset = QStringLiteral("偏距，米，从中线量起，不带正负号：左右两侧都算。空着或 0 只算中桩。");
inline const QString skew =
    QStringLiteral("夹角，度.分秒：45.3000 是 45度30分00秒。从前进方向顺时针量到斜线方向；负数为逆时针。");
inline const QString stationX = QStringLiteral("测站的X坐标（北），米。先勾选“输入坐标”。");
inline const QString stationY = QStringLiteral("测站的Y坐标（东），米。先勾选“输入坐标”。");
inline const QString pointX = QStringLiteral("X坐标（北），米。");
inline const QString pointY = QStringLiteral("Y坐标（东），米。");
inline const QString layer = QStringLiteral("要扣除的路面厚度，米：结果是设计高程减去它。负数抬高。");
inline const QString kq = QStringLiteral("K前：从中心向前的长度，米；斜交时垂直于斜交线量。");
inline const QString kh = QStringLiteral("K后：从中心向后的长度，米；斜交时垂直于斜交线量。");
inline const QString zz = QStringLiteral("Z左：从中心沿斜交线向左的宽度，米。");
inline const QString zy = QStringLiteral("Z右：从中心沿斜交线向右的宽度，米。");
inline const QString structureSkew = QStringLiteral(
    "夹角，度.分秒：60.0000 是 60度00分00秒。从前进方向顺时针量到右侧斜交线；负数先加 180。不勾选为 90 度。");
}  // namespace hint
