#include "Program.h"
#include "support/conversion.h"

namespace {

class ListTest : public ProgramTest
{
protected:
    ListTest()
    {
        std::filesystem::copy(TAVO_LISTING_FOLDER, path(""));
        std::filesystem::copy(std::string(TAVO_EXAMPLES_FOLDER) + "/modern.a2l", path(""));
        write("second.a2l", content("listing.a2l"));
    }
};

TEST_F(ListTest, FitsTheTableToItsContentAndQuotesCsv)
{
    EXPECT_EQ(tavo("list listing.a2l").out, content("listing.txt"));
    EXPECT_EQ(tavo("list listing.a2l --format=csv").out, content("listing.csv"));
}

TEST_F(ListTest, ShowsTheKindsAndColumnsThatAreAskedForInTheirOrder)
{
    struct
    {
        const char* words;
        const char* out;
    } cases[] = {
        {"list listing.a2l --kind measurements --columns unit,name,left_out",
         "2 measurements\n  unit       name  left_out\n  °C, \"dry\"  t[0]\n             flag\n"},
        {"list extremes.a2l --format csv --kind sources --columns name,period,kind",
         "name,period,kind\r\n50ps,0.05 ns,source\r\ncrank,,source\r\nrev,,source\r\n"},
        {"list extremes.a2l --format csv --kind sources --columns name --sort -period_ns,-name",
         "name\r\n50ps\r\nrev\r\ncrank\r\n"},
        {"list extremes.a2l --format csv --kind sources --columns name --sort interface,-name",
         "name\r\nrev\r\ncrank\r\n50ps\r\n"},
        {"list modern.a2l --kind methods --columns name,rows,coefficients --match *ure --match "
         "PwmR* --match Fa* "
         "--sort -name",
         "3 methods\n"
         "  name         rows                                                   coefficients\n"
         "  Temperature                                                         0.015625 -273.15\n"
         "  PwmRate      0=8; 1=10; 2=16\n"
         "  FaultClass   0..0=\"none\"; 1..999=\"warning\"; 1000..1999=\"shut down\"\n"},
        {"list modern.a2l --kind methods --columns name,unit --match Torque --format json",
         "{\n  \"methods\": [\n    {\"name\":\"Torque\",\"unit\":\"Nm\"}\n  ]\n}\n"},
        {"list listing.a2l second.a2l --kind interfaces --columns file,slave_id --format csv",
         "file,slave_id\r\nlisting.a2l,0x6f1\r\nsecond.a2l,0x6f1\r\n"},
        {"list listing.a2l second.a2l --kind interfaces --columns slave_id",
         "listing.a2l\n\n1 interface\n  slave_id\n     0x6f1\n\n"
         "second.a2l\n\n1 interface\n  slave_id\n     0x6f1\n\n"},
        {"list listing.a2l second.a2l --kind interfaces --columns name --format json",
         "{\n  \"file\": \"listing.a2l\",\n  \"interfaces\": [\n    {\"name\":\"CCP\"}\n  ]\n}\n"
         "{\n  \"file\": \"second.a2l\",\n  \"interfaces\": [\n    {\"name\":\"CCP\"}\n  ]\n}\n"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(tavo(c.words).out, c.out) << c.words;
    const std::string csv = tavo("list listing.a2l second.a2l --format csv").out;
    EXPECT_TRUE(csv.starts_with("file,kind,name,"));
    EXPECT_EQ(csv.find("kind", 10), std::string::npos); // one header
    EXPECT_NE(csv.find("second.a2l,measurement,t[0],"), std::string::npos);
    // The greatest addresses first, and last what has none.
    const std::string sorted =
        tavo("list extremes.a2l --format csv --kind measurements --columns address --sort -address")
            .out;
    EXPECT_TRUE(sorted.starts_with("address\r\n-4294967296\r\n")) << sorted;
    EXPECT_TRUE(sorted.ends_with("\r\n\r\n")) << sorted;
    const std::string json = tavo("list modern.a2l --format json --columns conversion,min").out;
    EXPECT_NE(json.find("{\"min\":"), std::string::npos);
    EXPECT_EQ(json.find("\"address\""), std::string::npos);
    EXPECT_EQ(tavo("list listing.a2l --sort adress").err,
              "tavo: error: --sort: There is no column 'adress'; did you mean 'address'?\n"
              "hint: 'tavo list --help' shows what there is\n");
    EXPECT_EQ(tavo("list listing.a2l --kind things").exitCode, 2);
}

TEST_F(ListTest, EachNumberAndTextOfManyIsItsOwn)
{
    std::string module;
    std::string expected = "description,max\r\n";
    for (int i = 0; i < 5000; ++i) {
        const std::string number = std::to_string(i) + ".5";
        module += "/begin MEASUREMENT m \"say \"\"" + number +
                  "\"\"\" UBYTE NO_COMPU_METHOD 0 0 0 " + number + " /end MEASUREMENT\n";
        expected += "\"say \"\"" + number + "\"\"\"," + number + "\r\n";
    }
    write("many.a2l", inModule(module));
    EXPECT_EQ(tavo("list many.a2l --format csv --columns description,max").out, expected);
}

} // namespace
