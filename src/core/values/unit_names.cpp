#include <vek/values/units.h>

#include "core/platform/platform.h"

#include <iterator>

namespace
{

/// The names of the units in a language, in the order of `Vek::lUnit`.
struct UnitNames {
    const wchar_t* language;
    const wchar_t* names;
};

// German first: it is used if a language is unknown.
constexpr UnitNames kUnitNames[] = {
    {L"de", L"Keine "
            L"Einheit|Zoll|Fuß|Meile|Millimeter|Zentimeter|Meter|Kilometer|Mikrozoll|Mil|Yard|Ångström|Nanometer|"
            L"Mikrometer|Dezimeter|Dekameter|Hektometer|Gigameter|Astronomische Einheit|Lichtjahr|Parsec"},
    {L"en", L"Unitless|Inch|Foot|Mile|Millimetre|Centimetre|Metre|Kilometre|Microinch|Mil|Yard|Angstrom|Nanometre|"
            L"Micron|Decimetre|Decametre|Hectometre|Gigametre|Astronomical unit|Light year|Parsec"},
    {L"fr", L"Sans "
            L"unité|Pouce|Pied|Mille|Millimètre|Centimètre|Mètre|Kilomètre|Micropouce|Mil|Yard|Ångström|Nanomètre|"
            L"Micron|Décimètre|Décamètre|Hectomètre|Gigamètre|Unité astronomique|Année-lumière|Parsec"},
    {L"it", L"Senza "
            L"unità|Pollice|Piede|Miglio|Millimetro|Centimetro|Metro|Chilometro|Micropollice|Mil|Iarda|Ångström|"
            L"Nanometro|Micron|Decimetro|Decametro|Ettometro|Gigametro|Unità astronomica|Anno luce|Parsec"},
    {L"es", L"Sin "
            L"unidad|Pulgada|Pie|Milla|Milímetro|Centímetro|Metro|Kilómetro|Micropulgada|Mil|Yarda|Ángstrom|Nanómetro|"
            L"Micra|Decímetro|Decámetro|Hectómetro|Gigámetro|Unidad astronómica|Año luz|Pársec"},
    {L"nl", L"Geen "
            L"eenheid|Inch|Voet|Mijl|Millimeter|Centimeter|Meter|Kilometer|Micro-inch|Mil|Yard|Ångström|Nanometer|"
            L"Micrometer|Decimeter|Decameter|Hectometer|Gigameter|Astronomische eenheid|Lichtjaar|Parsec"},
    {L"pl", L"Bez "
            L"jednostki|Cal|Stopa|Mila|Milimetr|Centymetr|Metr|Kilometr|Mikrocal|Mil|Jard|Angstrem|Nanometr|Mikrometr|"
            L"Decymetr|Dekametr|Hektometr|Gigametr|Jednostka astronomiczna|Rok świetlny|Parsek"},
    {L"cs", L"Bez "
            L"jednotky|Palec|Stopa|Míle|Milimetr|Centimetr|Metr|Kilometr|Mikropalec|Mil|Yard|Ångström|Nanometr|"
            L"Mikrometr|Decimetr|Dekametr|Hektometr|Gigametr|Astronomická jednotka|Světelný rok|Parsek"},
    {L"sk", L"Bez "
            L"jednotky|Palec|Stopa|Míľa|Milimeter|Centimeter|Meter|Kilometer|Mikropalec|Mil|Yard|Ångström|Nanometer|"
            L"Mikrometer|Decimeter|Dekameter|Hektometer|Gigameter|Astronomická jednotka|Svetelný rok|Parsek"},
    {L"hu", L"Nincs "
            L"mértékegység|Hüvelyk|Láb|Mérföld|Milliméter|Centiméter|Méter|Kilométer|Mikrohüvelyk|Mil|Yard|Ångström|"
            L"Nanométer|Mikrométer|Deciméter|Dekaméter|Hektométer|Gigaméter|Csillagászati egység|Fényév|Parszek"},
    {L"sl", L"Brez "
            L"enote|Palec|Čevelj|Milja|Milimeter|Centimeter|Meter|Kilometer|Mikropalec|Mil|Jard|Ångström|Nanometer|"
            L"Mikrometer|Decimeter|Dekameter|Hektometer|Gigameter|Astronomska enota|Svetlobno leto|Parsek"},
    {L"hr", L"Bez "
            L"jedinice|Palac|Stopa|Milja|Milimetar|Centimetar|Metar|Kilometar|Mikropalac|Mil|Jard|Ångström|Nanometar|"
            L"Mikrometar|Decimetar|Dekametar|Hektometar|Gigametar|Astronomska jedinica|Svjetlosna godina|Parsek"},
    {L"ro", L"Fără "
            L"unitate|Țol|Picior|Milă|Milimetru|Centimetru|Metru|Kilometru|Microțol|Mil|Yard|Ångström|Nanometru|"
            L"Micrometru|Decimetru|Decametru|Hectometru|Gigametru|Unitate astronomică|An-lumină|Parsec"},
    {L"bg", L"Без "
            L"единица|Инч|Фут|Миля|Милиметър|Сантиметър|Метър|Километър|Микроинч|Мил|Ярд|Ангстрьом|Нанометър|"
            L"Микрометър|Дециметър|Декаметър|Хектометър|Гигаметър|Астрономическа единица|Светлинна година|Парсек"},
    {L"el", L"Χωρίς "
            L"μονάδα|Ίντσα|Πόδι|Μίλι|Χιλιοστόμετρο|Εκατοστόμετρο|Μέτρο|Χιλιόμετρο|Μικροΐντσα|Μιλ|Γιάρδα|Άνγκστρομ|"
            L"Νανόμετρο|Μικρόμετρο|Δεκατόμετρο|Δεκάμετρο|Εκατόμετρο|Γιγάμετρο|Αστρονομική μονάδα|Έτος φωτός|Παρσέκ"},
    {L"tr", L"Birimsiz|İnç|Fit|Mil|Milimetre|Santimetre|Metre|Kilometre|Mikroinç|Binde bir "
            L"inç|Yarda|Ångström|Nanometre|Mikrometre|Desimetre|Dekametre|Hektometre|Gigametre|Astronomik birim|Işık "
            L"yılı|Parsek"},
    {L"pt", L"Sem "
            L"unidade|Polegada|Pé|Milha|Milímetro|Centímetro|Metro|Quilómetro|Micropolegada|Mil|Jarda|Ångström|"
            L"Nanómetro|Micrómetro|Decímetro|Decâmetro|Hectómetro|Gigâmetro|Unidade astronómica|Ano-luz|Parsec"},
    {L"da", L"Ingen enhed|Tomme|Fod|Mil (engelsk)|Millimeter|Centimeter|Meter|Kilometer|Mikrotomme|Tusindedel "
            L"tomme|Yard|Ångström|Nanometer|Mikrometer|Decimeter|Dekameter|Hektometer|Gigameter|Astronomisk "
            L"enhed|Lysår|Parsec"},
    {L"sv", L"Ingen enhet|Tum|Fot|Engelsk mil|Millimeter|Centimeter|Meter|Kilometer|Mikrotum|Tusendels "
            L"tum|Yard|Ångström|Nanometer|Mikrometer|Decimeter|Dekameter|Hektometer|Gigameter|Astronomisk "
            L"enhet|Ljusår|Parsec"},
    {L"nb", L"Ingen enhet|Tomme|Fot|Engelsk mil|Millimeter|Centimeter|Meter|Kilometer|Mikrotomme|Tusendels "
            L"tomme|Yard|Ångström|Nanometer|Mikrometer|Desimeter|Dekameter|Hektometer|Gigameter|Astronomisk "
            L"enhet|Lysår|Parsec"},
    {L"fi", L"Ei yksikköä|Tuuma|Jalka|Maili|Millimetri|Senttimetri|Metri|Kilometri|Mikrotuuma|Tuuman "
            L"tuhannesosa|Jaardi|Ångström|Nanometri|Mikrometri|Desimetri|Dekametri|Hehtometri|Gigametri|Astronominen "
            L"yksikkö|Valovuosi|Parsek"},
    {L"et",
     L"Ühikuta|Toll|Jalg|Miil|Millimeeter|Sentimeeter|Meeter|Kilomeeter|Mikrotoll|Tuhandiktoll|Jard|Ongström|"
     L"Nanomeeter|Mikromeeter|Detsimeeter|Dekameeter|Hektomeeter|Gigameeter|Astronoomiline ühik|Valgusaasta|Parsek"},
    {L"lv", L"Bez mērvienības|Colla|Pēda|Jūdze|Milimetrs|Centimetrs|Metrs|Kilometrs|Mikrocolla|Collas "
            L"tūkstošdaļa|Jards|Angstrēms|Nanometrs|Mikrometrs|Decimetrs|Dekametrs|Hektometrs|Gigametrs|Astronomiskā "
            L"vienība|Gaismas gads|Parseks"},
    {L"lt", L"Be vienetų|Colis|Pėda|Mylia|Milimetras|Centimetras|Metras|Kilometras|Mikrocolis|Colio "
            L"tūkstantoji|Jardas|Angstremas|Nanometras|Mikrometras|Decimetras|Dekametras|Hektometras|Gigametras|"
            L"Astronominis vienetas|Šviesmetis|Parsekas"},
    {L"ru", L"Без "
            L"единиц|Дюйм|Фут|Миля|Миллиметр|Сантиметр|Метр|Километр|Микродюйм|Мил|Ярд|Ангстрем|Нанометр|Микрометр|"
            L"Дециметр|Декаметр|Гектометр|Гигаметр|Астрономическая единица|Световой год|Парсек"},
    {L"uk", L"Без "
            L"одиниць|Дюйм|Фут|Миля|Міліметр|Сантиметр|Метр|Кілометр|Мікродюйм|Міл|Ярд|Ангстрем|Нанометр|Мікрометр|"
            L"Дециметр|Декаметр|Гектометр|Гігаметр|Астрономічна одиниця|Світловий рік|Парсек"},
};
constexpr std::size_t kLanguages = std::size(kUnitNames);

} // namespace

CVekArrayTempl<CVekString>& VEK::acad_units(const wchar_t* language)
{
    static CVekArrayTempl<CVekString> lists[kLanguages];
    std::size_t row = 0;
    for (std::size_t i = 0; language && i < kLanguages; ++i) {
        if (platform::equalNoCase(kUnitNames[i].language, language))
            row = i;
    }
    if (lists[row].len() == 0)
        strTok(lists[row], kUnitNames[row].names, L"|", true);
    return lists[row];
}
