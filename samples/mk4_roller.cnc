Guide roller dia 38 x 28 with three V grooves, bore 6 mm
Material: aluminium bar dia 40, 45 mm out of the chuck, face sawn (up to 0.8 mm proud)
Tools: T1 side tool right; T2 grooving tool 2 mm, set with its right corner; T3 centre drill A2.5; T4 drill 6 mm
Zero point: spindle axis, right face. Start point: radius 30, Z +40
Spindle 1000 rpm. Radius mode (G24): X counts from the axis, half the diameter.
One groove is a subroutine in incremental mode; it begins and ends 1 mm above the groove.
%
    N` G`   X `    Z `  F`  H 
    00 24                       Radius mode; must stand before G90 and G92
    01 92  3000   4000          Start point: radius 30, 40 mm off the face
    02M06    00     00T 01      T1 side tool swings in
    03M03                       Spindle on, 1000 rpm
    04 00  2050    100          1 mm off the face, beside the bar
    05 88 -  10     00  60  50  @  (2x)Facing Cycle
    06 00  2020    100          0.2 mm off the bar
    07 84  1920 - 3050  80  60  @  (2x)Longitudinal Cycle
    08 00  1830     20          Before the chamfer
    09 01  1900 -   50  50      Chamfer 0.5 x 45 deg
    10 01  1900 - 3050  50      Outside on size, on past the parting place
    11 01  2050 - 3050  80      Off the bar
    12 00  3000   4000          Retreat for the tool change
    13M06    00 -  820T 03      T3 centre drill
    14 00    00   4000          On the axis, still well clear
    15 00    00    200          2 mm off the face
    16 81       -  350  40      Centre the bore, 3.5 mm deep
    17 00    00   4000          Straight back out
    18M06    00 - 2380T 04      T4 drill 6 mm
    19 00    00    200          2 mm off the face
    20 83       - 3300  60      @  (7x)Drilling Cycle with Withdrawal
    21 00    00   4000          Straight back out
    22 00  3000   4000          Off the axis before the tool changes
    23M06 -  60    140T 02      T2 grooving tool
    24 00  3000 -  500          Along to the first groove
    25 00  2000 -  500          1 mm above the groove
    26 25             L 43      First groove
    27 90                       Absolute again, the groove left G91
    28 00  2000 - 1300          Second groove, 8 mm on
    29 25             L 43      Second groove
    30 90                       Absolute again
    31 00  2000 - 2100          Third groove, 8 mm on
    32 25             L 43      Third groove
    33 90                       Absolute again
    34 00  2000 - 2800          To the left face of the roller
    35 01  1100 - 2800  20      Cut in
    36 00  2000 - 2800          Out to clear the chips
    37 00  1120 - 2800          Down into the cut again
    38 01   280 - 2800  15      Through into the bore: the roller falls
    39 00  3000 - 2800          Out of the cut
    40 00  3000   4000          Back to the start point
    41M05                       Spindle off
    42M30                       End of program
    43 91                       Groove: starts 1 mm above, right corner
    44 01 - 300     00  20      Slot, first half
    45 00   100     00          Lift to break the chip
    46 01 - 300     00  20      Slot, 4 mm deep
    47 00   500     00          Above the groove
    48 00    00    150          Right flank: 1.5 mm to the right
    49 01 - 100     00  40      Down to the surface
    50 01 - 400 -  150  20      Right flank into the corner
    51 00   500     00          Above the groove
    52 00    00 -  150          Left flank: 1.5 mm to the left
    53 01 - 100     00  40      Down to the surface
    54 01 - 400    150  20      Left flank into the corner
    55 00   500     00          Above the groove again
    56M17                       Back to the main program
   M
