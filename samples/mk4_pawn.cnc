Chess pawn, 31 mm high, base dia 19
Material: aluminium bar dia 20, 50 mm out of the chuck, face sawn (up to 0.8 mm proud)
Tools: T1 copying tool right, 93 deg lead, 35 deg tip; T2 parting tool 2 mm, set with its right corner
Zero point: spindle axis, top of the head. Start point: dia 40, Z +10
Spindle 1800 rpm. The contour is a subroutine in incremental mode: it is called three times,
1.2 mm and 0.4 mm outside the size and then on size.
%
    N` G`   X `    Z `  F`  H 
    00 92  4000   1000          Start point: dia 40, 10 mm off the face
    01M06    00     00T 01      T1 copying tool swings in
    02M03                       Spindle on
    03 00  2100    100          Up to the bar, 1 mm off the face
    04 88 -  20     00  60  50  @  (2x)Facing Cycle
    05 00  2040    100          0.2 mm off the bar
    06 84  1960 - 3340  80  40  @  (1x)Longitudinal Cycle
    07 00  1980    100          Next: down to the base step
    08 84  1760 - 2597  80  60  @  (2x)Longitudinal Cycle
    09 00  1780    100          Next: rough steps of the body
    10 84  1560 - 2470  80  60  @  (2x)Longitudinal Cycle
    11 00  1580    100          Next step
    12 84  1360 - 2290  80  60  @  (2x)Longitudinal Cycle
    13 00  1380    100          Next: head, as far as the collar
    14 84  1260 - 1097  80  60  @  (1x)Longitudinal Cycle
    15 00  1280    100          Next: corner steps of the ball
    16 84  1000 -  220  80  80  @  (2x)Longitudinal Cycle
    17 00  1020    100          Next step
    18 84   700 -   90  80  80  @  (2x)Longitudinal Cycle
    19 00   240    100          Contour start, 1.2 mm outside the size
    20 25             L 42      First pass along the contour
    21 90                       Absolute again, the contour left G91
    22 00    80    100          Contour start, 0.4 mm outside the size
    23 25             L 42      Second pass along the contour
    24 90                       Absolute again
    25 00    00    100          Contour start on size
    26 25             L 42      Finishing pass
    27 90                       Absolute again
    28 00  4000    100          Retreat for the tool change
    29 00  4000   1000          Back to the start point
    30M06 -  60    140T 02      T2 parting tool
    31 00  4000 - 3130          Along to the foot of the pawn
    32 00  2000 - 3130          In to 0.5 mm off the base
    33 01  1200 - 3130  25      Cut in
    34 00  2000 - 3130          Back out to clear the chips
    35 00  1240 - 3130          Down into the cut again
    36 01   200 - 3130  20      Leave a peg of 2 mm, break it off by hand
    37 04    50                 Half a second to cut clean
    38 00  4000 - 3130          Out of the cut
    39 00  4000   1000          Back to the start point
    40M05                       Spindle off
    41M30                       End of program
    42 91                       Contour: starts 1 mm before the face
    43 01    00 -  100  50      Feed up to the face
    44 03   600 -  600  50      cmdCOLOR Yellow front half of the ball
    45 03 - 200 -  447  50      Rear of the ball down to the neck, 48 deg
    46M99 I 600 K   00          Ball centre is 6 mm further in
    47 01    00 -   80  50      Neck
    48 01   150     00  50      Right face of the collar
    49 03   100 -  100  50      Round the collar, R1
    50 01 - 200 -  200  40      Fall behind the collar, 45 deg
    51 02   400 - 1200  50      Hollow body, R20
    52M99 I2000 K   00          Centre 20 mm outside
    53 01   100     00  50      Step of the base
    54 01    00 -  700  50      Base, on past the parting place
    55 01    80     00  80      Off the bar
    56 00   100     00          Clear of the bar
    57 00    00   3427          Back in front of the face
    58 00 -1130     00          Down to where it began
    59M17                       Back to the main program
   M
