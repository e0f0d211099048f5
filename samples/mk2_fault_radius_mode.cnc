FAULT TO FIND: bush for a handle, the programmer wants to write X as a radius.
The check reports "!G24 must precede G90/G92" on line N01.
Why: G92 and G90 switch to absolute mode and take X as a diameter from then on. G24 after them comes too late;
half the program would be read one way and half the other.
To learn: G24 is the first line, then G92 with the radius. Right here is G24 in N00 and G92 in N01.
As the check ends at the fault, the lines behind it keep a question mark for the tool position.
Part: bush dia 16 x 20. Material: aluminium bar dia 18, 40 mm out of the chuck, face turned clean
Tool: T1 side tool right. Zero point: spindle axis, right face. Start point: radius 15, Z +5
%
   N00 G92 X 1500 Z   500 F    Start point: radius 15, 5 mm off the face
   N01 G24 X      Z       F    X is a radius from here on
   N02 G20 X      Z       F    Spindle on by hand, 1800 rpm, then Start
   N03 G00 X  920 Z   100 F    0.2 mm off the bar, 1 mm off the face
   N04 G84 X  850 Z- 2200 F 80 First cut
   N05 G84 X  820 Z- 2200 F 80 Second cut, 0.2 mm left on
   N06 G00 X  730 Z    20 F    Before the chamfer
   N07 G01 X  800 Z-   50 F 40 Chamfer 0.5 x 45 deg
   N08 G01 X  800 Z- 2200 F 40 Outside on size
   N09 G01 X  920 Z- 2200 F 80 Off the bar
   N10 G00 X 1500 Z   500 F    Back to the start point
   N11 G20 X      Z       F    Spindle off by hand
   N12 G22 X      Z       F    End of program
   M
