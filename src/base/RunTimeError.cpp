#include "base/RunTimeError.h"

const char* RunTimeError::what() const noexcept
{
    switch (m_number) {
    case Overflow:
        return "溢出";
    case Subscript:
        return "下标越界";
    case DivisionByZero:
        return "除数为零";
    case TypeMismatch:
        return "类型不匹配";
    case FileNotFound:
        return "文件未找到";
    case PathAccess:
        return "路径/文件访问错误";
    case PathNotFound:
        return "路径未找到";
    }
    return "";
}
