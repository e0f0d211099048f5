// Full quadrants, partial arcs with M99 and with a radius line, and the centre of an arc.

#include "basic/run_time_error.h"
#include "interpreter/check_pass.h"
#include "support/short_program.h"

namespace kvt::test {

namespace {

class Arcs : public BenchTest {
protected:
    std::string Center(int line) const {
        return Cell(line, column::CenterX) + "," + Cell(line, column::CenterY) + "," +
               Cell(line, column::CenterZ);
    }
    // Neither the entry row nor a file can write this key, so the cell is set.
    void MakeRadiusLine(int line, float radius) {
        Bench->Store.lvCncProgram.Row(line + 1)[column::Code] = "M99R";
        Bench->Store.M99Radius = radius;
        Bench->Interpreter.Interpreter();
    }
};

// A quadrant of radius 100 from the zero point in U and V, with its centres.
struct Quadrant {
    const char *EndU, *EndV;
    const char *TrueU, *TrueV;    // G02 on a lathe, G03 on the mill
    const char *FalseU, *FalseV;  // the other
};

constexpr Quadrant quadrants[] = {
    {"100", "100", "0", "100", "100", "0"},
    {"100", "-100", "100", "0", "0", "-100"},
    {"-100", "100", "-100", "0", "0", "100"},
    {"-100", "-100", "0", "-100", "-100", "0"},
};

}  // namespace

TEST_F(Arcs, FullQuadrantsInEverySenseAndPlane) {
    struct Plane {
        std::string Machine, Name;
        const char* Place;  // to where the third coordinate is moved beforehand
        std::string Third;
    };
    const Plane planes[] = {
        {"MK4", "XZ", "21", "0"},
        {"F1", "XY", "00 Z700", "700"},
        {"F1", "XZ", "00 Y300", "300"},
        {"F1", "YZ", "00 X200", "200"},
    };
    for (const Plane& plane : planes) {
        for (const Quadrant& one : quadrants) {
            for (const bool sense : {true, false}) {
                const std::string code = sense != (plane.Machine == "F1") ? "02" : "03";
                const std::string arc =
                    code + " F50 " + plane.Name[0] + one.EndU + " " + plane.Name[1] + one.EndV;
                SCOPED_TRACE(plane.Machine + " " + arc);
                Check(plane.Machine, Program(std::string(plane.Place) + "; " + arc));

                const std::string u = sense ? one.TrueU : one.FalseU, v = sense ? one.TrueV : one.FalseV;
                EXPECT_EQ(Error(1), "");
                EXPECT_EQ(Bench->Store.ActivePlane, plane.Name);
                EXPECT_EQ(Cell(1, column::Radius), "   100");
                EXPECT_EQ(Cell(1, column::Angle), "90.0");
                EXPECT_EQ(Center(1), plane.Name == "XY"   ? u + "," + v + "," + plane.Third
                                     : plane.Name == "XZ" ? u + "," + plane.Third + "," + v
                                                          : plane.Third + "," + u + "," + v);
            }
        }
    }
}

TEST_F(Arcs, PartialArcTakesTheOffsetsOfItsPlane) {
    struct Case {
        const char *Machine, *Program, *Center, *Radius, *Angle;
    };
    const Case cases[] = {
        // Radius 500 around a centre 300 and 400 below the start; the offset off the plane says nothing.
        {"MK4", "21; 03 X200 Z-400 F50; M99 I300 K400", "-300,0,-400", "   500", "53.1"},
        {"F1", "21; 02 X200 Y-400 F50; M99 I300 J400 K999", "-300,-400,0", "   500", "53.1"},
        {"F1", "21; 02 X200 Z-400 F50; M99 I300 J999 K400", "-300,0,-400", "   500", "53.1"},
        {"F1", "21; 02 Y200 Z-400 F50; M99 I999 J300 K400", "0,-300,-400", "   500", "53.1"},
        // The root of 5000. A chord of 44.7 spans 36.9 degrees.
        {"MK4", "21; 03 X20 Z-40 F50; M99 I50 K50", "-50,0,-50", "70.711", "36.9"},
        // A 32-bit float: 50.7499997 degrees are 50.75, and a half is rounded up.
        {"MK4", "21; 02 X183 Z28 F50; M99 I216 K0", nullptr, "   216", "50.8"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.Program);
        Check(one.Machine, Program(one.Program));
        EXPECT_EQ(Bench->Store.ErrorRow, 0);
        EXPECT_EQ(Cell(1, column::Radius), one.Radius);
        EXPECT_EQ(Cell(1, column::Angle), one.Angle);
        if (one.Center) {
            EXPECT_EQ(Center(1), one.Center);
        }
    }
    // The points are truncated, but the angle lies between tool positions: from X 0.5 to X 10 it is 9.5 by 10
    // on a radius of 10, not the 90 degrees of the whole points.
    Check("MK4", Program("90; 00 X1; 02 X20 Z-10 F50; M99 I10 K0"));
    EXPECT_EQ(Center(2), "10,0,0");
    EXPECT_EQ(Cell(2, column::Angle), "87.2");
}

TEST_F(Arcs, Findings) {
    struct Case {
        const char *Machine, *Program;
        int At;  // the line of the finding, -1 for none
        const char* Message;
    };
    const Case cases[] = {
        {"MK4", "02 F50", 0, "!Start and End same value"},
        {"F1", "03 X0 Y0 Z0 F50", 0, "!Start and End same value"},
        {"MK4", "90; 00 X1000; 02 X1001 Z0 F50", 2, "!Start and End same value"},  // 500 and 500.5
        {"MK4", "03 X100 Z50 F50", 0, "!Not a full quadrant"},
        {"F1", "02 X100 Y90 F50", 0, "!Not a full quadrant"},
        {"F1", "02 X100 Z90 F50", 0, "!Not a full quadrant"},
        {"F1", "02 Y100 Z90 F50", 0, "!Not a full quadrant"},
        {"MK4", "02 X60 Z-40 F50; M99 I50 K0", 0, "!Radius too small"},
        {"MK4", "02 X40 Z-60 F50; M99 I50 K0", 0, "!Radius too small"},
        {"MK4", "02 X50 Z-50 F50; M99 I50 K0", -1, ""},
        {"MK4", "01 Z-60 F50; M99 I50 K0", 1, "!Must be preceded by G02/03"},
        {"F1", "M99 I50 J50 K0; 21", -1, ""},
        {"F1", "M99 I50 J50 K0; M99 I50 J50 K0", 1, "!Must be preceded by G02/03"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.Machine) + " " + one.Program);
        Check(one.Machine, Program(one.Program));
        EXPECT_EQ(Bench->Store.ErrorRow, one.At + 1);
        if (one.At >= 0) {
            EXPECT_EQ(Error(one.At), one.Message);
        }
    }
}

// Start and end on different sides of the centre: each bound just met and just passed.
TEST_F(Arcs, QuadrantLimitHasATolerance) {
    struct Case {
        const char *Within, *Over;
    };
    const Case cases[] = {
        // Start above the centre in U by 80, 81; end below by 1, 2, for this bound alone is 1, on purpose.
        {"03 X-100 Z-39 F50; M99 I100 K0", "03 X-100 Z-41 F50; M99 I100 K0"},
        {"03 X-100 Z-87 F50; M99 I100 K0", "03 X-100 Z-84 F50; M99 I100 K0"},
        // Start below in U, end above.
        {"02 X161 Z0 F50; M99 I200 K0", "02 X163 Z0 F50; M99 I200 K0"},
        {"02 X161 Z-1 F50; M99 I200 K0", "02 X163 Z-1 F50; M99 I200 K0"},
        // Start above in V, end below.
        {"03 X-23 Z-200 F50; M99 I200 K0", "03 X-22 Z-200 F50; M99 I200 K0"},
        {"02 X-24 Z-200 F50; M99 I200 K0", "02 X-23 Z-200 F50; M99 I200 K0"},
        // Start below in V, end above.
        {"02 X-23 Z200 F50; M99 I200 K0", "02 X-22 Z200 F50; M99 I200 K0"},
        {"03 X-24 Z200 F50; M99 I200 K0", "03 X-23 Z200 F50; M99 I200 K0"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.Over);
        Check("MK4", Program(one.Within));
        EXPECT_EQ(Bench->Store.ErrorRow, 0);
        Check("MK4", Program(one.Over));
        EXPECT_EQ(Error(1), "!1 quadrant max");
    }
}

// In XY the move in Y is not held against the radius: there is no such arc, which is one fault. The centre is
// the zero point then, and the angle that of the X-Z move.
TEST_F(Arcs, ChordLongerThanTheDiameter) {
    Check("F1", Program("21; 02 X10 Y300 F50; M99 I100 J0 K0"));
    EXPECT_EQ(Error(1), "");
    EXPECT_EQ(Center(1), "0,0,0");
    EXPECT_EQ(Cell(1, column::Angle), "5.7");
    EXPECT_EQ(Error(2), "!Invalid arc");
    const auto& records = Bench->Log.Records();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].Number, fault::InvalidCall);
    EXPECT_EQ(records[0].Procedure, "Interpreter");
}

TEST_F(Arcs, LastLineKeepsTheFormOfTheArcBefore) {
    const std::string program = "03 X200 Z-400 F50; M99 I300 K400; 02 X100 Z-50 F50";
    Check("MK4", Program(program));
    EXPECT_EQ(Bench->Store.ErrorRow, 0);
    EXPECT_EQ(Cell(2, column::Radius), "   500");
    Check("MK4", Program(program + "; 21"));
    EXPECT_EQ(Error(2), "!Not a full quadrant");
}

TEST_F(Arcs, RadiusOfNothingEndsTheRunInSilence) {
    Check("MK4", Program("01 Z-1000 F100; 02 X100 Z100 F50; M99 I100 K0"));
    const std::string time = "00:00:08";  // 6 s, and 157 / 78.55 of the arc
    EXPECT_EQ(Bench->Results.lblPPMachineTime.Caption.Get(), time);
    Bench->Store.lvCncProgram.Row(3)[column::X] = "I  00";
    Bench->Interpreter.Interpreter();
    EXPECT_EQ(Bench->Results.lblPPMachineTime.Caption.Get(), time);
    EXPECT_EQ(Bench->Results.lblPPLinesExe.Caption.Get(), "1");
    EXPECT_EQ(Bench->Store.ErrorRow, 0);
    EXPECT_EQ(Cell(1, column::Radius), "      ");
    EXPECT_EQ(Cell(1, column::ToolX), "     ?");
}

TEST_F(Arcs, RadiusLineBecomesAnOrdinaryOne) {
    struct Case {
        const char *Machine, *Program, *X, *Y, *Z;
    };
    const Case cases[] = {
        {"MK4", "03 X200 Z-400 F50; M99", "I 300", "", "K  400"},
        {"F1", "02 X200 Y-400 F50; M99", "I  300", "J 400", "K   00"},
        {"F1", "02 X200 Z-400 F50; M99", "I  300", "J  00", "K  400"},
        {"F1", "02 Y200 Z-400 F50; M99", "I   00", "J 300", "K  400"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.Program);
        Check(one.Machine, Program(one.Program));
        MakeRadiusLine(1, 500);
        EXPECT_EQ(Cell(1, column::Code), "M99 ");
        EXPECT_EQ(Cell(1, column::X), one.X);
        EXPECT_EQ(Cell(1, column::Y), one.Y);
        EXPECT_EQ(Cell(1, column::Z), one.Z);
        // The radius has done its work: the offsets stand for themselves now.
        Bench->Store.M99Radius = 1;
        Bench->Interpreter.Interpreter();
        EXPECT_EQ(Bench->Store.ErrorRow, 0);
        EXPECT_EQ(Cell(0, column::Radius), "   500");
    }
}

TEST_F(Arcs, FindingsOfARadiusLine) {
    struct Case {
        const char *Machine, *Program;
        float Radius;
        int At;
        const char *Message, *Code;
    };
    const Case cases[] = {
        {"MK4", "03 X-100 Z-84 F50; M99", 100, 1, "!1 quadrant max", "M99 "},
        {"MK4", "02 X100 Z100 F50; M99", 0, 0, "!Radius too small", "M99R"},
        {"MK4", "21; M99", 100, 1, "!Must be preceded by G02/03", "M99R"},
        // A centre that fits neither end is no finding here, as it is behind M99.
        {"F1", "02 X10 Y300 F50; M99", 100, 1, "", "M99 "},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.Program);
        Check(one.Machine, Program(one.Program));
        MakeRadiusLine(1, one.Radius);
        EXPECT_EQ(Error(one.At), one.Message);
        EXPECT_EQ(Cell(1, column::Code), one.Code);
    }
    Check("MK4", Program("M99; 21"));
    MakeRadiusLine(0, 100);
    EXPECT_EQ(Bench->Store.ErrorRow, 0);
    EXPECT_EQ(Cell(0, column::Code), "M99R");
}

// What is typed as 99R reaches the row as another code, which no rule knows.
TEST_F(Arcs, TypedRadiusLineIsNone) {
    Check("MK4", Program("03 X100 Z-100 F50"));
    Bench->Store.lvCncProgram.Select(2);
    Bench->Entry.lblGMcode.Caption = "M";
    Bench->Entry.txtGMcode.Text = "99R";
    std::string code = "99R";
    Bench->Layout.InputFields(code);
    Bench->Entry.txtXI.Text = "500";
    Bench->Lines.LineEdit();
    EXPECT_EQ(Bench->Store.M99Radius, 500);
    EXPECT_EQ(Cell(1, column::Code), "M9R ");
    EXPECT_EQ(Cell(1, column::X), "R 500");
    EXPECT_EQ(Bench->Store.ErrorRow, 0);
    EXPECT_EQ(Cell(0, column::Radius), "   100");
}

// That control works Z out from X. What was typed is replaced.
TEST_F(Arcs, DerivedZOfMK2) {
    struct Case {
        const char *Program, *Z, *Message, *Center;
    };
    const Case cases[] = {
        {"92 X2000 Z0; 03 X3000 Z-1 F100", "-  500", "", "1000,0,-500"},
        {"92 X2000 Z0; 03 X1000 F100", "-  500", "", "500,0,0"},
        {"92 X2000 Z-200; 02 X3000 F100", "-  700", "", "1500,0,-200"},
        {"92 X2000 Z800; 02 X3000 F100", "-  300", "!Radius too small", nullptr},
        // Halves go to the even number: 2.5 and 3.5.
        {"92 X2000 Z0; 02 X2005 F100", "-   02", "!Radius too small", nullptr},
        {"92 X2000 Z0; 02 X2007 F100", "-   04", "!Radius too small", nullptr},
        {"24; 92 X1000 Z0; 02 X1500 F100", "-  500", "", "1500,0,0"},
        // Incremental: Z is X, but the move in Z stays the typed one; a half is rounded up.
        {"21; 02 X-300 F100", "-  300", "", "0,0,-300"},
        {"21; 02 X300 Z-500 F100", "-  300", "!Radius too small", nullptr},
        {"21; 02 X12.5 F100", "-   13", "", nullptr},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.Program);
        Check("MK2", Program(one.Program));
        const int last = Bench->Store.LineCount() - 1;
        EXPECT_EQ(Cell(last, column::Z), one.Z);
        EXPECT_EQ(Error(last), one.Message);
        if (one.Center) {
            EXPECT_EQ(Center(last), one.Center);
        }
    }
}

TEST(FindCenter, Choices) {
    struct Case {
        float StartU, StartV, EndU, EndV, Radius;
        bool Direction;
        float U, V;
    };
    const Case cases[] = {
        // Level: a tie in U.
        {0, 0, 200, 0, 125, true, 100, 75},
        {0, 0, 200, 0, 125, false, 100, -75},
        // Upwards and downwards, fractions cut off towards zero: (-43.5, 143.5) and (143.5, -43.5).
        {0, 0, 100, 100, 150, true, -43, 143},
        {0, 0, 100, 100, 150, false, 143, -43},
        {100, 100, 0, 0, 150, true, 143, -43},
        {100, 100, 0, 0, 150, false, -43, 143},
        // The chord is the diameter: both candidates are its middle.
        {0, 0, 60, 80, 50, true, 30, 40},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(testing::Message() << one.EndU << ", " << one.EndV << " " << one.Direction);
        float u = 0, v = 0;
        FindCenter(one.StartU, one.StartV, one.EndU, one.EndV, one.Radius, one.Direction, u, v);
        EXPECT_EQ(u, one.U);
        EXPECT_EQ(v, one.V);
    }
}

TEST(FindCenter, LeavesTheCenterWhereThereIsNone) {
    float u = 7, v = 8;
    const auto faultOf = [&](float endU, float radius) {
        try {
            FindCenter(0, 0, endU, 0, radius, true, u, v);
        } catch (const RunTimeError& error) {
            return error.Number;
        }
        return 0;
    };
    EXPECT_EQ(faultOf(100, 0), 0);
    EXPECT_EQ(faultOf(201, 100), fault::InvalidCall);
    EXPECT_EQ(faultOf(0, 100), fault::DivisionByZero);
    EXPECT_EQ(u, 7);
    EXPECT_EQ(v, 8);
}

TEST(ArcDistance, IsTheWholePart) {
    EXPECT_EQ(ArcDistance(0, 0, 3, 4), 5);
    EXPECT_EQ(ArcDistance(-2, 0, 0, 2.2), 2);  // 2.97
}

}  // namespace kvt::test
