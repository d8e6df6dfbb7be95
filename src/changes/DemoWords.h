#pragma once

#include <array>
#include <string_view>

/// The content of made-up records. It is data of an imaginary person, not a text of the program, and stays
/// the same in every language.
namespace DemoWords {

struct Client {
    std::u16string_view name;
    std::array<std::u16string_view, 3> projects;
    std::u16string_view currency;
    int rate;  ///< per hour
};

inline constexpr Client kClients[] = {
    {u"Alder Clinic", {u"Appointment desk", u"Patient letters", u"Server room"}, u"EUR", 85},
    {u"Birchwood School", {u"Timetable", u"Website", u"Library"}, u"EUR", 60},
    {u"Cooper & Daughters", {u"Stock list", u"Price labels", u"Web shop"}, u"GBP", 75},
    {u"Dunmore Ferries", {u"Booking", u"Crew roster", u"Ticket printers"}, u"GBP", 95},
    {u"Elm Street Theatre", {u"Box office", u"Season brochure", u"Lighting plan"}, u"USD", 70},
    {u"Fjord Fisheries", {u"Catch reports", u"Cold store", u"Export papers"}, u"EUR", 110},
    {u"Garnet Insurance", {u"Claims form", u"Data move", u"Training"}, u"USD", 140},
    {u"Hollis Bakery", {u"Till system", u"Recipes", u"Delivery rounds"}, u"EUR", 55},
    {u"Ivory Piano Works", {u"Workshop plan", u"Catalogue", u"Repairs ledger"}, u"EUR", 80},
    {u"Juniper Housing", {u"Tenant portal", u"Heating readings", u"Accounts"}, u"GBP", 90},
    {u"Kestrel Surveying", {u"Map archive", u"Field tablets", u"Tender"}, u"USD", 120},
    {u"Müller Gartenbau", {u"Pflanzenliste", u"Angebote", u"Wetterdaten"}, u"EUR", 65},
};

inline constexpr std::u16string_view kActivities[] = {u"Meeting",  u"Planning", u"Programming", u"Testing",
                                                      u"Writing",  u"Support",  u"Telephone",   u"Training",
                                                      u"Research", u"Travel"};

inline constexpr std::u16string_view kCostCentres[] = {u"100 Office", u"200 On site", u"300 Remote",
                                                       u"400 Workshop"};

inline constexpr std::u16string_view kNotes[] = {u"See the letter of the 3rd.",
                                                 u"Agreed by telephone, to be confirmed.",
                                                 u"Second attempt, the first one didn't last.",
                                                 u"Waiting for an answer.",
                                                 u"Finished; invoice with the next batch.",
                                                 u"Two people.\nThe second one only until noon.",
                                                 u"Started late: the key wasn't there.",
                                                 u"Half of it goes to the other project."};

inline constexpr std::u16string_view kExpenseTypes[] = {u"Travel",  u"Meals", u"Material",
                                                        u"Postage", u"Books", u"Hotel"};

inline constexpr std::u16string_view kPayments[] = {u"Cash", u"Card", u"Invoice"};

inline constexpr std::u16string_view kCurrencies[] = {u"EUR", u"GBP", u"USD"};

inline constexpr float kDistanceRate = 0.3F;

}  // namespace DemoWords
