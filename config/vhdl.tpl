# Templates for VHDL (IEEE 1076-2008), loaded by the [Templates] section of ruvo.ini.
# A header is [name(parameter, ...)]; the body runs to the next line that begins with "[".
# $1$ to $5$ stand for the values of the parameters, asked for when the template is inserted.

[entity and architecture(Entity, Architecture)]
library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;

entity $1$ is
	port (
		clk : in std_logic;
		rst : in std_logic
	);
end entity $1$;

architecture $2$ of $1$ is
begin

end architecture $2$;
[architecture(Architecture, Entity)]
architecture $1$ of $2$ is
begin

end architecture $1$;
[clocked process(Label, Clock, Reset)]
$1$ : process ($2$, $3$)
begin
	if $3$ = '1' then
		
	elsif rising_edge($2$) then
		
	end if;
end process $1$;
[synchronous process(Label, Clock, Reset)]
$1$ : process ($2$)
begin
	if rising_edge($2$) then
		if $3$ = '1' then
			
		else
			
		end if;
	end if;
end process $1$;
[combinational process(Label)]
$1$ : process (all)
begin
	
end process $1$;
[component(Component)]
component $1$ is
	port (
		clk : in std_logic;
		rst : in std_logic
	);
end component $1$;
[instance(Label, Component)]
$1$ : $2$
	port map (
		clk => clk,
		rst => rst
	);
[entity instance(Label, Entity)]
$1$ : entity work.$2$
	port map (
		clk => clk,
		rst => rst
	);
[case(Selector)]
case $1$ is
	when  =>
		
	when others =>
		null;
end case;
[if(Condition)]
if $1$ then
	
elsif  then
	
else
	
end if;
[for generate(Label, Index, Range)]
$1$ : for $2$ in $3$ generate
begin
	
end generate $1$;
[for loop(Index, Range)]
for $1$ in $2$ loop
	
end loop;
[package and body(Package)]
library ieee;
use ieee.std_logic_1164.all;

package $1$ is

end package $1$;

package body $1$ is

end package body $1$;
[function(Name, Parameter, Return type)]
function $1$ ($2$) return $3$ is
begin
	return ;
end function $1$;
[testbench(Entity, Clock period)]
library ieee;
use ieee.std_logic_1164.all;
use ieee.numeric_std.all;

entity $1$_tb is
end entity $1$_tb;

architecture sim of $1$_tb is
	constant clk_period : time := $2$;
	signal clk : std_logic := '0';
	signal rst : std_logic := '1';
	signal done : boolean := false;
begin
	clk <= not clk after clk_period / 2 when not done else '0';

	dut : entity work.$1$
		port map (
			clk => clk,
			rst => rst
		);

	stimulus : process
	begin
		wait for 2 * clk_period;
		rst <= '0';
		wait until rising_edge(clk);

		done <= true;
		report "simulation finished";
		wait;
	end process stimulus;
end architecture sim;
