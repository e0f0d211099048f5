FAULT TO FIND: flange dia 58, approached from dia 62, and a finishing cut whose feed was forgotten.
The check reports "!X=5999maximum" on line N02 and "!F= 2 minimum" on line N07.
Why: the slide of this lathe lets dia 59.99 pass and no more, and a feed of 0 would never arrive.
To learn: such faults are found line by line, all of them in one check, while tool positions and times are
still worked out to the end. The time betrays the feed as well: nearly six minutes for 6 mm.
The heading of the error column names the first line; look for the others too.
Right here is X5900 in N02 and F40 in N07.
Part: flange dia 58 x 6. Material: aluminium disc dia 59 x 12 on a mandrel
Tool: T1 side tool right, mounted before the start. Zero point: spindle axis, right face
Start point: dia 59.5, Z +20
%
   N00 G92 X 5950 Z  2000 F    Start point: dia 59.5, 20 mm off the face
   N01 G20 X      Z       F    Spindle on by hand, 600 rpm, then Start
   N02 G00 X 6200 Z   100 F    Off the disc, 1 mm off the face
   N03 G84 X 5820 Z-  620 F 50 Outside with 0.2 mm left on
   N04 G00 X 5660 Z    20 F    Before the chamfer
   N05 G01 X 5800 Z-   50 F 40 Chamfer 0.5 x 45 deg
   N06 G21 X      Z       F    Now on size
   N07 G01 X 5800 Z-  620 F 00 Outside on size
   N08 G01 X 5940 Z-  620 F 60 Off the disc
   N09 G00 X 5950 Z  2000 F    Back to the start point
   N10 G20 X      Z       F    Spindle off by hand
   N11 G22 X      Z       F    End of program
   M
