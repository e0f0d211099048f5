Stud M8 x 1.25: thread 18 mm, run-out groove 4 mm, collar dia 12
Material: aluminium bar dia 12, 40 mm out of the chuck, face turned clean
Tools: T1 side tool right, mounted before the start; T2 grooving tool 2 mm, set with its right corner;
T3 threading tool 60 deg
Zero point: spindle axis, end of the thread. Start point: dia 30, Z +10
Spindle 2000 rpm, 300 rpm for groove and thread (at most 320 at this pitch), switched by hand
%
   N00 G92 X 3000 Z  1000 F    Start point: dia 30, 10 mm off the face
   N01 G20 X      Z       F    Spindle on by hand, 2000 rpm, then Start
   N02 G00 X 1240 Z   100 F    0.2 mm off the bar, 1 mm off the face
   N03 G84 X 1080 Z- 2180 F 80 Shank, first cut
   N04 G84 X  940 Z- 2180 F 80 Second cut
   N05 G84 X  845 Z- 2180 F 80 Third cut, 0.3 mm left on
   N06 G00 X  545 Z    20 F    Before the chamfer
   N07 G01 X  785 Z-  100 F 40 Chamfer 1 x 45 deg
   N08 G01 X  785 Z- 2200 F 40 Thread outside, 0.15 mm under size
   N09 G01 X 1240 Z- 2200 F 50 Shoulder, out past the bar
   N10 G00 X 3000 Z  1000 F    Retreat for the tool change
   N11 G20 X      Z       F    Spindle to 300 rpm by hand, then Start
   N12 G26 X-  40 Z   120 F 02 T2 grooving tool in
   N13 G00 X 3000 Z- 1800 F    Along to the run-out groove
   N14 G00 X  900 Z- 1800 F    In to 0.6 mm off the shank
   N15 G01 X  700 Z- 1800 F 20 Right half, first bite
   N16 G00 X  740 Z- 1800 F    Lift to break the chip
   N17 G01 X  600 Z- 1800 F 20 Down to dia 6
   N18 G00 X  900 Z- 1800 F    Out
   N19 G00 X  900 Z- 2000 F    On by the width of the tool
   N20 G01 X  700 Z- 2000 F 20 Left half, first bite
   N21 G00 X  740 Z- 2000 F    Lift to break the chip
   N22 G01 X  600 Z- 2000 F 20 Down to dia 6, up to the shoulder
   N23 G00 X 3000 Z- 2000 F    Out
   N24 G00 X 3000 Z  1000 F    Retreat for the tool change
   N25 G26 X   15 Z-   90 F 03 T3 threading tool in
   N26 G00 X  820 Z   250 F    2.5 mm run-in: two pitches
   N27 G78 X  755 Z- 1950 F125 Thread, first cut 0.15 deep
   N28 G78 X  730 Z- 1950 F125 0.28 deep
   N29 G78 X  705 Z- 1950 F125 0.40 deep
   N30 G78 X  680 Z- 1950 F125 0.52 deep
   N31 G78 X  660 Z- 1950 F125 0.62 deep
   N32 G78 X  645 Z- 1950 F125 0.70 deep
   N33 G78 X  637 Z- 1950 F125 Full depth 0.74
   N34 G00 X  637 Z   250 F    Core diameter for the spring cut
   N35 G33 X      Z- 1950 F125 Spring cut, same start as the cycles
   N36 G00 X 1300 Z- 1950 F    Out of the thread, in the groove
   N37 G00 X 1300 Z   250 F    Back in front
   N38 G00 X 3000 Z  1000 F    Back to the start point
   N39 G20 X      Z       F    Spindle off by hand, try the nut
   N40 G22 X      Z       F    End of program
   M
