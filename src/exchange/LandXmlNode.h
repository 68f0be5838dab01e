#pragma once
// Reading a node of an XML document strictly.

#include "exchange/ExchangeError.h"

#include <pugixml.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The name without its prefix; "" for what is no element.
std::string_view LocalName(const pugi::xml_node& node);
/// The first child of that name, a null node where there is none.
pugi::xml_node ChildOf(const pugi::xml_node& node, std::string_view name);
/// All text of a node: what stands before and behind a comment is one.
std::string TextOf(const pugi::xml_node& node);
/// An attribute without blanks around it, in small letters; "" where it does not stand.
std::string WordOf(const pugi::xml_node& node, const char* name);
bool IsBlankText(std::string_view text);

/// The numbers of a list separated by blanks. @throws ExchangeError for anything that is no finite number
std::vector<double> NumbersOf(std::string_view text, const std::string& place);
/// An attribute as a number, nothing where it does not stand. @throws ExchangeError as NumbersOf
std::optional<double> NumberOf(const pugi::xml_node& node, const char* name, const std::string& place);
/// The radius of a spiral's end, 0 for INF and for what is as straight. @throws ExchangeError where it does not stand
/// or is negative
double RadiusOf(const pugi::xml_node& node, const char* name, const std::string& place);

/// Runs a reading whose failure may be passed over.
template <class Reading>
void attemptNumber(Reading&& reading)
{
    try {
        reading();
    } catch (const ExchangeError&) {
    }
}
