Stepped shaft: dia 10 x 12, dia 14 x 13, dia 18 x 15, edges broken
Material: aluminium bar dia 22, 55 mm out of the chuck, face sawn (up to 0.5 mm proud)
Tool: T1 side tool right, mounted before the start
Zero point: spindle axis, face of the small end. Start point: dia 30, Z +5
Spindle 1800 rpm, switched by hand: the program stops for it
%
   N00 G92 X 3000 Z   500 F    Start point: dia 30, 5 mm off the face
   N01 G20 X      Z       F    Spindle on by hand, 1800 rpm, then Start
   N02 G00 X 2300 Z    00 F    Beside the bar, in line with the face
   N03 G01 X-  20 Z    00 F 50 Face, a touch past the centre
   N04 G00 X-  20 Z   100 F    Off the face
   N05 G00 X 2240 Z   100 F    0.2 mm off the bar
   N06 G84 X 2060 Z- 3980 F 80 Large step, first cut
   N07 G84 X 1930 Z- 3980 F 80 Second cut
   N08 G84 X 1830 Z- 3980 F 80 Third cut, 0.3 mm left on
   N09 G00 X 1850 Z   100 F    Next: middle step
   N10 G84 X 1690 Z- 2480 F 80 First cut
   N11 G84 X 1550 Z- 2480 F 80 Second cut
   N12 G84 X 1430 Z- 2480 F 80 Third cut, 0.3 mm left on
   N13 G00 X 1450 Z   100 F    Next: small step
   N14 G84 X 1290 Z- 1180 F 80 First cut
   N15 G84 X 1150 Z- 1180 F 80 Second cut
   N16 G84 X 1030 Z- 1180 F 80 Third cut, 0.3 mm left on
   N17 G21 X      Z       F    Now the finishing cut along all steps
   N18 G00 X  760 Z    20 F    Before the chamfer
   N19 G01 X 1000 Z-  100 F 40 Chamfer 1 x 45 deg
   N20 G01 X 1000 Z- 1200 F 40 Dia 10 on size
   N21 G01 X 1340 Z- 1200 F 40 Shoulder
   N22 G01 X 1400 Z- 1230 F 40 Break the edge 0.3
   N23 G01 X 1400 Z- 2500 F 40 Dia 14 on size
   N24 G01 X 1740 Z- 2500 F 40 Shoulder
   N25 G01 X 1800 Z- 2530 F 40 Break the edge 0.3
   N26 G01 X 1800 Z- 4000 F 40 Dia 18 on size
   N27 G01 X 2300 Z- 4000 F 60 Shoulder, out past the bar
   N28 G00 X 3000 Z- 4000 F    Retreat
   N29 G00 X 3000 Z   500 F    Back to the start point
   N30 G20 X      Z       F    Spindle off by hand, measure
   N31 G22 X      Z       F    End of program
   M
